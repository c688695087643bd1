; Starts a CD boot sector as something other than this BIOS does. The sector stands behind this program in the CD's
; boot image, is read from the CD to 0000:7C00 and started there with the drive in DL, no other register in order, and
; a key typed ahead.
;
; SEGMENT    0 or 0x7C0: as 0000:7C00 or as 07C0:0000
; MEMORY_KB  what INT 12h tells the sector
; BAD_BIOS   puts something before INT 13h that calls the CD drive 9F; of each read fails once, then reads less than it
;            was asked for and calls it a success, then reads; ruins every register, and the packet when it fails;
;            objects to reads of more than 16 sectors or across 64 KB, and to a further try without a reset
;
; Memory map:
;   0000:0600-0000:0DFF  this program, where it does its work
;   0000:0E00-           scratch sector of 2,048 bytes
;   ....-0000:7BFF       stack
;   0000:7C00-0000:83FF  this program as the BIOS loads it, then the sector

bits 16
cpu 386
org 0x600

%ifndef SEGMENT
  %define SEGMENT 0
%endif

SCRATCH           equ 0xE00
BOOT_RECORD       equ 17        ; where every mastering program puts it
CATALOGUE         equ 0x47      ; of the boot record
IMAGE             equ 0x28      ; of the catalogue
MEMORY_SIZE       equ 0x413     ; what INT 12h tells
DISK_VECTOR       equ 0x13 * 4
MOST_SECTORS      equ 16
BAD_DRIVE         equ 0x9F

start:
    cli
    xor ax, ax
    mov ss, ax
    mov sp, 0x7C00
    mov ds, ax
    mov es, ax
    cld
    mov si, 0x7C00
    mov di, start
    mov cx, 1024
    rep movsw
    jmp 0x0000:.moved
.moved:
    sti
    mov eax, BOOT_RECORD
    mov cx, SCRATCH
    call read
    mov eax, [SCRATCH + CATALOGUE]
    call read
    mov eax, [SCRATCH + IMAGE]
    inc eax
    mov cx, 0x7C00
    call read
%ifdef MEMORY_KB
    mov word [MEMORY_SIZE], MEMORY_KB
%endif
%ifdef BAD_BIOS
    cli
    mov eax, [DISK_VECTOR]
    mov [bios], eax
    mov word [DISK_VECTOR], bad_bios
    mov [DISK_VECTOR + 2], cs
    mov [real_drive], dl
    mov dl, BAD_DRIVE
%endif
    mov ah, 5                   ; the keyboard: a key that nobody has read
    mov cx, 0x1E61
    int 0x16
    cli
    mov ax, 0x9000              ; a stack elsewhere
    mov ss, ax
    mov sp, 0x1000
    call ruin
    jmp SEGMENT:0x7C00 - SEGMENT * 16

; IN: EAX = sector, CX = place, DL = drive. OUT: read. CLOBBERS: AX, SI.
read:
    mov [packet.sector], eax
    mov [packet.place], cx
    mov word [packet.count], 1
    mov si, packet
    mov ah, 0x42
    int 0x13
    jc failed
    ret

failed:
    mov si, failure
    ; falls through

; IN: SI = text. OUT: shown; does not return.
say:
    xor ax, ax
    mov ds, ax
    cld
.letter:
    lodsb
    test al, al
.halt:
    jz .halt
    mov ah, 0x0E
    mov bx, 7
    int 0x10
    jmp .letter

; IN: -. OUT: all registers but SS:SP and DL are of no use, DF is set. CLOBBERS: everything else; not CF.
ruin:
    mov eax, 0xDEADBEEF
    mov ebx, eax
    mov ecx, eax
    mov dh, al
    mov esi, eax
    mov edi, eax
    mov ebp, eax
    mov ds, ax
    mov es, ax
    mov fs, ax
    mov gs, ax
    std
    ret

; Stands before INT 13h.
bad_bios:
    cld
    cmp dl, BAD_DRIVE
    jne .objection
    test ah, ah
    je .reset
    cmp ah, 0x42
    jne .objection
    cmp byte [cs:must_reset], 0
    jne .objection
    mov byte [cs:must_reset], 1
    cmp word [si], 16
    jne .objection
    cmp dword [si + 12], 0
    jne .objection
    mov ax, [si + 2]
    dec ax
    cmp ax, MOST_SECTORS
    jae .objection
    movzx ebx, word [si + 6]
    shl ebx, 4
    movzx ecx, word [si + 4]
    add ebx, ecx
    movzx ecx, ax
    shl ecx, 11
    lea ecx, [ebx + ecx + 2047] ; the last byte
    xor ecx, ebx
    shr ecx, 16
    jnz .objection              ; not in the 64 KB of the first
    mov ah, 0x42
    inc byte [cs:turn]
    cmp byte [cs:turn], 2
    jb .fail
    je .short
    mov byte [cs:turn], 0
    mov byte [cs:must_reset], 0
    mov dl, [cs:real_drive]
    pushf
    call far [cs:bios]
    jc .return                  ; the CD is at fault
    jmp .good
.reset:
    mov byte [cs:must_reset], 0
    jmp .good
.fail:
    mov eax, -1
    mov [si], eax
    mov [si + 4], eax
    mov [si + 8], eax
    mov [si + 12], eax
    stc
    jmp .return
.short:
    dec word [si + 2]
.good:
    clc
.return:
    call ruin
    mov dl, al                  ; not even this
    retf 2                      ; with these flags: CF, no interrupts, DF
.objection:
    mov si, objection
    jmp say

failure:
    db 'The starter could not read the CD', 0
objection:
    db 'The BIOS was not called as it should be', 0
packet:
    dw 16
.count:
    dw 1
.place:
    dw 0, 0
.sector:
    dd 0, 0
bios:
    dd 0
real_drive:
    db 0
must_reset:
    db 0
turn:
    db 0

    times 2048 - ($ - $$) db 0
