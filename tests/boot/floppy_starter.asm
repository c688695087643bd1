; Starts the boot sector of a floppy in ways in which the emulator's BIOS does not start it. This program is the first
; sector of the floppy, and the boot sector that it starts is the second one. It fills the free memory with a value that
; is not zero, reads that sector to 0000:7C00, and enters it at 07C0:0000 with DL = 0 and random values in the other
; registers. It also installs a faulty INT 13h. There the first three tries of each read fail, and all tries of a read
; of the sector that the test names in the bytes at `bad_sector`. Each call destroys every register but SS:SP, and sets
; DF. An objection appears on the screen after a new try without a reset, and after a read that crosses a track or
; 64 KB. The emulated floppy drive reports no errors: QEMU returns zeros for what it cannot read.
;
; Memory map:
;   0000:0500-0000:06FF  this program after it has moved itself
;   ....-9000:1000       stack

bits 16
cpu 386
org 0x500

READ              equ 2         ; function of INT 13h
DISK_VECTOR       equ 0x13 * 4
FAILURES          equ 3
TRACK_SIZE        equ 0x500 + 24  ; in the parameter block
NO_DISK_YET       equ 0x80      ; an error of INT 13h: time-out

start:
    jmp short begin
    nop
    times 62 - ($ - $$) db 0    ; the parameter block of the volume

bad_sector:                     ; the tests expect it at offset 62
.cylinder:
    db 0
.head:
    db 0
.number:
    db 0                        ; from 1 on; 0: none

begin:
    cli
    xor ax, ax
    mov ds, ax
    mov es, ax
    mov ax, 0x9000
    mov ss, ax
    mov sp, 0x1000
    cld
    mov si, 0x7C00
    mov di, start
    mov cx, 256
    rep movsw
    jmp 0x0000:.moved
.moved:
    mov dx, 0x70                ; segment
.fill:
    mov es, dx
    xor di, di
    mov ax, 0xA5A5
    mov cx, 8
    rep stosw
    inc dx
    cmp dx, 0x9000
    jb .fill
    sti
    push ds
    pop es
    mov ax, READ << 8 | 1
    mov bx, 0x7C00
    mov cx, 2
    mov dx, 0
    int 0x13
    jc .failed
    cli
    mov eax, [DISK_VECTOR]
    mov [bios], eax
    mov word [DISK_VECTOR], bad_bios
    mov [DISK_VECTOR + 2], cs
    mov dl, 0
    call ruin
    mov dl, 0
    jmp 0x07C0:0x0000
.failed:
    mov si, failure
    ; falls through

%include "say.inc"

; Destroys all registers except SS:SP, and sets DF.
; IN: -. OUT: -. CLOBBERS: all registers except SS:SP, all flags except CF.
ruin:
    mov eax, 0xDEADBEEF
    mov ebx, eax
    mov ecx, eax
    mov edx, eax
    mov esi, eax
    mov edi, eax
    mov ebp, eax
    mov ds, ax
    mov es, ax
    mov fs, ax
    mov gs, ax
    std
    ret

; The faulty INT 13h. It calls the one of the BIOS.
bad_bios:
    cld
    test ah, ah
    jz .reset
    cmp ah, READ
    jne .objection
    cmp byte [cs:must_reset], 0
    jne .objection
    test al, al
    jz .objection
    push ax
    push dx
    mov ah, cl
    dec ah
    add ah, al
    cmp ah, [cs:TRACK_SIZE]
    pop dx
    ja .objection
    push dx
    movzx edx, al
    shl edx, 9
    dec edx                     ; EDX = offset of the last byte
    mov ax, es
    shl ax, 4
    add ax, bx                  ; AX = the address of the first byte within 64 KB
    movzx eax, ax
    add edx, eax
    cmp edx, 0xFFFF
    pop dx
    pop ax
    ja .objection
    cmp ch, [cs:bad_sector.cylinder]
    jne .readable
    cmp dh, [cs:bad_sector.head]
    jne .readable
    mov ah, [cs:bad_sector.number]
    sub ah, cl                  ; AH = its place in the read
    cmp ah, al
    mov ah, READ
    jb .fail
.readable:
    inc byte [cs:turn]
    cmp byte [cs:turn], FAILURES
    jbe .fail
    mov byte [cs:turn], 0
    pushf
    call far [cs:bios]
    jmp .return
.fail:
    mov byte [cs:must_reset], 1
    call ruin
    mov ah, NO_DISK_YET
    stc
    retf 2
.reset:
    mov byte [cs:must_reset], 0
    clc
.return:
    call ruin
    retf 2                      ; returns the current flags: CF, interrupts off, DF set
.objection:
    mov si, objection
    push cs
    pop ds
    jmp say

failure:
    db 'The starter could not read the floppy', 0
objection:
    db 'The BIOS was not called as it should be', 0
bios:
    dd 0
must_reset:
    db 0
turn:
    db 0

    times 510 - ($ - $$) db 0
    db 0x55, 0xAA
