; Starts when a machine boots from the CD. It is the boot loader, which does not have a boot menu yet: it shows a
; message, waits for a key and restarts the machine.
;
; Memory map: this program is at 0000:7C00-0000:83FF (one CD sector); the stack grows from 0000:7C00 downwards.
; The BIOS loads 4 sectors of 512 bytes and enters at 0000:7C00 or 07C0:0000 with the number of the drive in DL. The
; other registers are undefined.

bits 16
org 0x7C00

start:
    jmp 0x0000:.here            ; sets CS: some BIOSes enter at 07C0:0000
.here:
    cli                         ; no interrupt may use the stack while SS:SP change
    xor ax, ax
    mov ss, ax
    mov sp, 0x7C00
    mov ds, ax
    cld
    sti
    mov si, message
    call print
    xor ah, ah
    int 0x16                    ; wait for a key
    mov word [0x0472], 0x1234   ; asks the BIOS to skip its memory test
    jmp 0xFFFF:0x0000

; Shows a text on the screen.
; IN: DS:SI = text ended by NUL. OUT: -. CLOBBERS: AX, BX, SI.
print:
    lodsb
    test al, al
    jz .end
    mov ah, 0x0E
    mov bx, 7
    int 0x10
    jmp print
.end:
    ret

message:
    db 13, 10, 'Vexa Rescue CD', 13, 10
    db 'This disc has no boot menu: the menu is not part of this version.', 13, 10
    db 'Remove the disc and press a key to start again.', 13, 10, 0

    times 2048 - ($ - $$) db 0
