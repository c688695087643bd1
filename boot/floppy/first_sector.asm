; The first sector of LOADER.BIN, which the boot sector of a floppy loads as a whole: checks the rest, which is behind
; it in memory, and starts it. Memory map: loader.ld.

bits 16
cpu 386

ORIGIN           equ 0x8200
STAGE2           equ 0x8400
STACK            equ 0x7C00     ; downwards
SECTOR           equ 512

org ORIGIN

; IN: DL = drive. OUT: does not return.
start:
    cli                         ; no interrupt may use the stack while SS:SP change
    xor ax, ax
    mov ss, ax
    mov sp, STACK
    mov ds, ax
    cld
    sti
    push dx
    call check_memory
    call verify
    pop dx
    xor dh, dh                  ; entry.asm takes DH as the shift of CD sectors, which a floppy does not have
    jmp 0x0000:STAGE2

    times 64 - ($ - $$) db 0
mark:                           ; scripts/join_loader.py finds this text and fills in the values behind it
    db 'DWLOADER'
rest_sectors:
    dw 0                        ; length of the rest
    dw 0
rest_sum:
    dd 0                        ; sum of its words of 32 bits
rest_sum_of_sums:
    dd 0                        ; sum of that sum after each word: it differs when words change places

%include "verify.inc"

; Shows nothing: no text of this program has a placeholder.
; IN: -. OUT: -. CLOBBERS: -.
print_placeholder:
    ret

%include "messages.inc"

damaged:
    db 'LOADER.BIN on this disk is damaged (code 3).', 13, 10
    db 'Make the disk again, and use another one if that does not help.', 0
restart:
    db 13, 10, 'Press a key to restart.', 13, 10, 0

%if rest_sectors - start != 72
  %error "scripts/join_loader.py expects the mark at offset 64"
%endif
%if STAGE2 != ORIGIN + SECTOR
  %error "the rest must follow this sector in memory as in the file"
%endif
    times SECTOR - ($ - $$) db 0
