; Starts when a machine boots from a floppy: finds LOADER.BIN in the root folder of the FAT12 volume, loads it wherever
; its clusters are, and starts it. It is the first sector of the floppy; CreateDsk puts the parameter block (BPB) of the
; disk into it. LOADER.BIN checks itself (first_sector.asm).
;
; Memory map:
;   ....-0000:7BFF       stack, downwards from 0000:7C00
;   0000:7C00-0000:7DFF  this program
;   0000:8200-1000:FFFF  the root folder, and then LOADER.BIN
;   2000:0000-           the file allocation table
; All addresses of reads are multiples of 512, and the reads are of one sector. So none crosses a 64 KB boundary, which
; DMA could not do.
;
; The BIOS enters at 0000:7C00 or 07C0:0000 with the number of the drive in DL. The other registers are undefined. All
; jumps but the last one are relative, so CS does not matter. The program needs an 80386.

bits 16
cpu 386

ORIGIN        equ 0x7C00
LOADER        equ 0x8200
TABLE         equ 0x2000        ; segment; LOADER.BIN ends below it
READ          equ 0x0201        ; function of INT 13h: reads one sector
TRIES         equ 5             ; the number of tries for each read; a drive may need three until its motor runs
SECTOR        equ 512
RECORD        equ 32            ; size of an entry of a folder
NAME          equ 11            ; size of a name in it
LABEL_FOLDER  equ 0x18          ; attributes of volume labels and of folders
FIRST_CLUSTER equ 26            ; offset in an entry
END_MARKS     equ 0xFF0         ; this number and larger ones do not stand for clusters

; The parameter block, from BP on, which is ORIGIN.
CLUSTER_SIZE  equ 13            ; in sectors
RESERVED      equ 14
TABLES        equ 16
ROOT_ENTRIES  equ 17
TABLE_SIZE    equ 22            ; in sectors
TRACK_SIZE    equ 24
HEADS         equ 26
DRIVE         equ 36            ; this program stores the number of the drive here
FIRST_DATA    equ 54            ; this program stores the sector of the first cluster in place of the file system's name
BLOCK_END     equ 62
error         equ ORIGIN + 37   ; an unused byte of the block: the BIOS error of the last failed read (bios_error.inc)

org ORIGIN

start:
    jmp short begin
    nop
    times BLOCK_END - ($ - $$) db 0

begin:
    xor ax, ax
    mov ss, ax                  ; the processor allows no interrupt before the next instruction has ended
    mov sp, ORIGIN
    mov bp, sp
    mov ds, ax
    mov [bp + DRIVE], dl

; Reads the table and the root folder.
    mov ax, [bp + RESERVED]
    mov cx, [bp + TABLE_SIZE]
    push word TABLE
    pop es
    call read
    movzx ax, byte [bp + TABLES]
    mul word [bp + TABLE_SIZE]
    add ax, [bp + RESERVED]
    mov cx, [bp + ROOT_ENTRIES]
    add cx, SECTOR / RECORD - 1
    shr cx, 4                   ; sectors
    push word LOADER / 16
    pop es
    push es
    call read
    mov [bp + FIRST_DATA], ax

; Finds the file.
    pop es
    xor di, di
    mov cx, [bp + ROOT_ENTRIES]
.record:
    pusha
    mov si, name
    mov cx, NAME
    repe cmpsb
    popa
    jne .other
    test byte [es:di + NAME], LABEL_FOLDER
    jz .found
.other:
    add di, RECORD
    loop .record
.damaged:
    mov si, damaged
    jmp stop

; Loads it. If its chain of clusters is damaged, the loading ends early, and LOADER.BIN finds that a part is missing.
.found:
    mov si, [es:di + FIRST_CLUSTER]
.cluster:
    lea ax, [si - 2]
    cmp ax, END_MARKS - 2       ; 0 and 1 are above that now
    jae .end
    movzx cx, byte [bp + CLUSTER_SIZE]
    mul cx
    add ax, [bp + FIRST_DATA]
    call read
    mov ax, es
    cmp ah, TABLE >> 8
    jae .end                    ; the chain is a circle, or the file is too large
    push word TABLE
    pop fs                      ; set anew each time, because some BIOSes change it
    mov bx, si
    shr bx, 1                   ; the table has 12 bits for each cluster; CF = 1 for an odd one
    mov ax, [fs:bx + si]
    jnc .even
    shr ax, 4
.even:
    and ah, 0x0F
    xchg si, ax
    jmp .cluster
.end:
    cmp word [LOADER + 64], 'DW' ; the mark's beginning
    jne .damaged
    mov dl, [bp + DRIVE]
    jmp 0x0000:LOADER

; Calls INT 13h for the drive. Saves all registers, because some BIOSes change registers that they should keep.
; IN: AX = function, ES, BX, CX, DH = what it needs. OUT: CF as the BIOS returns it, error if CF = 1. CLOBBERS: -.
disk:
    pusha
    push ds
    push es
    mov dl, [bp + DRIVE]
    int 0x13
    pop es
    pop ds
    jnc .end
    mov [error], ah
.end:
    popa
    cld                         ; some BIOSes change DF, too
    ret

; Reads sectors one by one, and repeats a failed read. Shows a message and does not return if all tries fail.
; IN: AX = first sector of the floppy, CX = count, ES = segment of the memory. OUT: AX, ES = what is behind them.
; CLOBBERS: CX.
next:
    mov ax, es
    add ax, SECTOR / 16
    mov es, ax
    popa
    inc ax
    loop read
    ret
read:                           ; the routine begins here
    pusha
    xor dx, dx
    div word [bp + TRACK_SIZE]
    inc dx
    mov cx, dx                  ; CL = sector of the track, from 1 on
    xor dx, dx
    div word [bp + HEADS]
    mov ch, al                  ; cylinder
    mov dh, dl                  ; head
    mov di, TRIES
    xor bx, bx
.try:
    mov ax, READ
    call disk
    jnc next
    xor ax, ax                  ; resets the drive
    call disk
    dec di
    jnz .try
    mov si, unreadable
    ; falls through to "stop"

%include "messages.inc"
%include "bios_error.inc"

name:
    db 'LOADER  BIN'
unreadable:
    db 'The disk cannot be read (BIOS error ', PLACEHOLDER, ').', 0
damaged:
    db 'LOADER.BIN is missing or damaged.', 0
restart:
    db 13, 10, 'Press a key to restart.', 0

    times SECTOR - 2 - ($ - $$) db 0  ; the assembler refuses a program that is larger than a sector
    db 0x55, 0xAA
