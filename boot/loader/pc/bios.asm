; Runs routines in real mode for C++ code: calls of the BIOS, waiting for an interrupt, and jumps that leave the loader.
; Memory map: loader.ld. Everything here is below 64 KB, so that real mode reaches it with segment 0.

cpu 386

global RealModeCall
global RealModeWait
global RealModeJump
global RealModeStartKernel
extern gdt_register

%include "selectors.inc"

REAL_STACK equ 0x7C00           ; downwards
IF         equ 0x0200           ; the flag that allows interrupts

; The registers as C++ passes them: struct Registers of bios.h.
struc REGISTERS
.eax:    resd 1
.ebx:    resd 1
.ecx:    resd 1
.edx:    resd 1
.esi:    resd 1
.edi:    resd 1
.ebp:    resd 1
.flags:  resd 1
.ds:     resw 1
.es:     resw 1
endstruc

section .real_mode

bits 32

; void RealModeCall(std::uint32_t interrupt, Registers* registers): calls an interrupt.
; IN: on the stack. OUT: *registers. CLOBBERS: EAX, ECX, EDX.
RealModeCall:
    mov eax, [esp + 4]
    mov eax, [eax * 4]          ; its vector
    mov [target], eax
    mov word [routine], call_interrupt
    mov eax, [esp + 8]
    push eax
    call run
    pop eax
    ret

; void RealModeWait(): waits for the next interrupt of the hardware.
; IN: -. OUT: -. CLOBBERS: EAX, ECX, EDX.
RealModeWait:
    mov word [routine], wait_for_interrupt
    push dword registers
    call run
    pop eax
    ret

; void RealModeJump(std::uint32_t address, Registers* registers): jumps to segment:offset and does not return. The stack
; is at 0000:7C00, and interrupts are allowed.
; IN: on the stack. OUT: does not return.
RealModeJump:
    mov eax, [esp + 4]
    mov [target], eax
    mov word [routine], jump
    push dword [esp + 8]
    call run

; void RealModeStartKernel(std::uint32_t address): jumps to segment:offset and does not return. All segment registers get
; the segment that begins 20h paragraphs below, the stack ends at offset E000h in it, and interrupts are forbidden.
; IN: on the stack. OUT: does not return.
RealModeStartKernel:
    mov eax, [esp + 4]
    mov [target], eax
    mov word [routine], start_kernel
    push dword registers
    call run

; Runs `routine` in real mode.
; IN: pointer to struct Registers on the stack. OUT: the struct as the routine leaves it. CLOBBERS: EAX, ECX, EDX.
run:
    push ebx
    push ebp
    push esi
    push edi
    mov esi, [esp + 20]
    mov edi, registers
    mov ecx, REGISTERS_size / 4
    rep movsd
    mov [protected_stack], esp
    jmp CODE16:.protected16
bits 16
.protected16:
    mov ax, DATA16              ; real mode keeps the limits of the segments: they must be 64 KB
    mov ds, ax
    mov es, ax
    mov fs, ax
    mov gs, ax
    mov ss, ax
    mov eax, cr0
    and al, 0xFE
    mov cr0, eax
    jmp 0x0000:.real
.real:
    xor ax, ax
    mov ds, ax
    mov es, ax
    mov fs, ax
    mov gs, ax
    mov ss, ax
    mov sp, REAL_STACK
    jmp [routine]

; The routines come here at their end.
; IN: CS = 0, interrupts forbidden; no other register matters. OUT: returns from `run`.
finished:
    cld                         ; some BIOSes change DF
    xor ax, ax
    mov ds, ax
    o32 lgdt [gdt_register]     ; the BIOS may have used a table of its own
    mov eax, cr0
    or al, 1
    mov cr0, eax
    jmp dword CODE32:.protected
bits 32
.protected:
    mov ax, DATA32
    mov ds, ax
    mov es, ax
    mov fs, ax
    mov gs, ax
    mov ss, ax
    mov esp, [protected_stack]
    mov edi, [esp + 20]
    mov esi, registers
    mov ecx, REGISTERS_size / 4
    rep movsd
    pop edi
    pop esi
    pop ebp
    pop ebx
    ret

bits 16

; Calls the interrupt whose vector is `target`. Saves everything that it returns, whatever it has changed.
; IN: registers, target. OUT: registers.
call_interrupt:
    call load_registers
    push word IF                ; what the instruction INT would push; the call below pushes CS and IP
    mov ds, [cs:registers + REGISTERS.ds]
    call far [cs:target]
    pushfd
    cli
    pop dword [cs:registers + REGISTERS.flags]
    mov [cs:registers + REGISTERS.eax], eax
    mov [cs:registers + REGISTERS.ebx], ebx
    mov [cs:registers + REGISTERS.ecx], ecx
    mov [cs:registers + REGISTERS.edx], edx
    mov [cs:registers + REGISTERS.esi], esi
    mov [cs:registers + REGISTERS.edi], edi
    mov [cs:registers + REGISTERS.ebp], ebp
    mov [cs:registers + REGISTERS.ds], ds
    mov [cs:registers + REGISTERS.es], es
    jmp finished

wait_for_interrupt:
    sti
    hlt
    cli
    jmp finished

; Jumps to `target`.
; IN: registers, target, SS:SP = 0000:7C00. OUT: does not return.
jump:
    call load_registers
    mov ds, [cs:registers + REGISTERS.ds]
    sti
    jmp far [cs:target]

; Jumps to `target`, the entry of a Linux kernel.
; IN: target, interrupts forbidden. OUT: does not return.
start_kernel:
    mov ax, [target + 2]
    sub ax, 0x20
    mov ds, ax
    mov es, ax
    mov fs, ax
    mov gs, ax
    mov ss, ax
    mov sp, 0xE000
    jmp far [cs:target]

; IN: registers. OUT: all registers as they say, but for DS and the flags. CLOBBERS: -.
load_registers:
    mov eax, [registers + REGISTERS.eax]
    mov ebx, [registers + REGISTERS.ebx]
    mov ecx, [registers + REGISTERS.ecx]
    mov edx, [registers + REGISTERS.edx]
    mov esi, [registers + REGISTERS.esi]
    mov edi, [registers + REGISTERS.edi]
    mov ebp, [registers + REGISTERS.ebp]
    mov es, [registers + REGISTERS.es]
    ret

    align 4
registers:
    times REGISTERS_size db 0
target:
    dd 0                        ; segment:offset
protected_stack:
    dd 0
routine:
    dw 0

%if REGISTERS_size != 36
  %error "struct Registers of bios.h has another size"
%endif
