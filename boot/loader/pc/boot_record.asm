; Starts the loader when an image of the CD is on a USB stick or a hard disk. mkisofs copies this program to the
; beginning of the image, in front of a partition table, and fills in the sector of the loader. The BIOS loads the first
; 512 bytes of a disk and starts them.
;
; Memory map:
;   0000:0600-0000:07FF  this program after it has moved itself
;   0000:0800-0000:0801  its variables
;   ....-0000:7BFF       stack
;   0000:7C00-0000:83FF  this program as the BIOS loads it, then the first CD sector of the loader (stage1.asm)
;
; The BIOS enters at 0000:7C00 or 07C0:0000 with the number of the drive in DL. The other registers are undefined. The
; program needs an 80386, a disk with sectors of 512 bytes, and a BIOS with the INT 13h extensions.

bits 16
cpu 386

CHECK_EXTENSIONS equ 0x41       ; functions of INT 13h
EXTENDED_READ    equ 0x42
RESET            equ 0x00
PACKETS_BIT      equ 0          ; number of the bit of CX that says after CHECK_EXTENSIONS: the BIOS has EXTENDED_READ
TRIES            equ 4          ; the number of tries
SHORT_READ       equ 0xFF       ; shown as the BIOS error when the BIOS read fewer sectors and reported success
STAGE1           equ 0x7C00     ; where the BIOS loads this program, and this program loads the loader
SECTORS          equ 4          ; of 512 bytes in a CD sector
SIZE             equ 440        ; the disk signature and the partition table follow

org 0x600

absolute 0x800
drive:      resb 1
error:      resb 1              ; what the BIOS said about the last failed read

section .text

start:
    cli
    xor ax, ax
    mov ss, ax
    mov sp, STAGE1
    mov ds, ax
    mov es, ax
    mov si, sp
    mov di, start
    mov cx, 256
    cld
    rep movsw
    jmp 0x0000:.moved
.moved:
    mov [drive], dl
    mov ah, CHECK_EXTENSIONS
    mov bx, 0x55AA
    call disk
    mov si, no_extensions
    jc .stop
    cmp bx, 0xAA55
    jne .stop
    shr cx, PACKETS_BIT + 1
    jnc .stop
    mov bp, TRIES
.try:
    push dword 0                ; the disk address packet: new for each try, because some BIOSes change it
    push dword [loader_sector]
    push word 0
    push word STAGE1
    push word SECTORS
    push word 16
    mov si, sp
    mov ah, EXTENDED_READ
    call disk
    pop cx                      ; keeps CF
    pop cx                      ; the sectors that were read
    jc .failed
    cmp cl, SECTORS
    je .read
    mov ah, SHORT_READ
.failed:
    mov [error], ah
    mov ah, RESET
    call disk
    dec bp
    jnz .try
    mov si, unreadable
.stop:
    jmp stop
.read:
    mov si, no_loader
    cmp dword [STAGE1 + 64], 'DWLO'
    jne .stop
    cmp dword [STAGE1 + 68], 'ADER'
    jne .stop
    mov dl, [drive]
    jmp STAGE1                  ; CS = 0

; Calls INT 13h.
; IN: AH = function, BX, SI = as the function wants them, drive. OUT: AX, BX, CX, CF as the BIOS returns them.
; CLOBBERS: DX, SI, DI, ES.
disk:
    push bp
    mov dl, [drive]
    int 0x13
    pop bp
    push cs                     ; some BIOSes change registers that they should keep, and DF and IF
    pop ds
    cld
    sti
    ret

%include "bios_error.inc"
%include "messages.inc"

no_extensions:                  ; the texts are as long as the room allows
    db 'The BIOS cannot read this disk (code 6).', 0
unreadable:
    db 'The disk cannot be read (code 7, BIOS error ', PLACEHOLDER, ').', 0
no_loader:
    db 'The image is damaged (code 8).', 0
restart:
    db 13, 10, 'Write the image again, or to a CD.', 13, 10, 'Press a key to restart.', 13, 10, 0

    times SIZE - 4 - ($ - $$) db 0
loader_sector:
    dd 0                        ; the first sector of the loader on the disk; mkisofs fills it in

%if $ - $$ != SIZE
  %error "the partition table must follow"
%endif
