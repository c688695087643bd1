; The first instructions behind stage 1: switches to 32-bit protected mode and calls LoaderMain. Memory map: loader.ld.

cpu 386

global start
global gdt_register
extern LoaderMain
extern stack_top
extern bss_start
extern bss_words

%include "selectors.inc"

section .start

bits 16

; IN: DL = drive, DH = log2 of its sectors per CD sector, DS = 0. OUT: does not return.
start:
    cli                         ; from here on, interrupts happen in real mode only (bios.asm)
    lgdt [gdt_register]
    mov ebx, cr0
    or bl, 1
    mov cr0, ebx
    jmp dword CODE32:.protected
bits 32
.protected:
    mov bx, DATA32
    mov ds, bx
    mov es, bx
    mov fs, bx
    mov gs, bx
    mov ss, bx
    mov esp, stack_top
    mov edi, bss_start
    mov ecx, bss_words
    xor eax, eax
    rep stosd
    movzx eax, dh
    push eax
    movzx eax, dl
    push eax
    call LoaderMain
.halt:
    hlt                         ; LoaderMain does not return
    jmp .halt

    align 8
gdt:
    dq 0
    dq 0x00CF9A000000FFFF       ; CODE32: the whole 4 GB from address 0
    dq 0x00CF92000000FFFF       ; DATA32
    dq 0x00009A000000FFFF       ; CODE16: the first 64 KB, as real mode needs it
    dq 0x000092000000FFFF       ; DATA16
.end:
gdt_register:
    dw gdt.end - gdt - 1
    dd gdt
