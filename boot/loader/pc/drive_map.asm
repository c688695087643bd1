; Gives hard disks other numbers, for a system that is started from another disk than the loader. drive_map.cpp copies
; this program to memory that stays reserved, fills in its tables, and makes it the handler of INT 13h. Memory map:
; loader.ld. The program runs at offset 0 of any segment, on the stack of its caller.

cpu 386

global drive_map
global drive_map_bios
global drive_map_numbers
global drive_map_end

FIRST_DISK equ 0x80
DISKS      equ 16               ; kMappedDisks in drive_numbers.h
PARAMETERS equ 0x08             ; functions that return something in DL: the number of drives,
DISK_SIZE  equ 0x15             ; and, on success, a part of the size
CARRY      equ 1                ; flag

section .rodata.drive_map progbits alloc noexec nowrite align=4

bits 16

; Handles INT 13h: calls the BIOS with the disk's own number in DL.
; IN: as the BIOS. OUT: as the BIOS; DL = the caller's, unless the function returns something in it. CLOBBERS: as the
; BIOS.
drive_map:
    cmp dl, FIRST_DISK
    jb .unchanged
    cmp dl, FIRST_DISK + DISKS
    jae .unchanged
    push bp
    mov bp, sp                  ; [bp + 2] = the caller's address, [bp + 6] = its flags
    push ax
    push dx
    push bx
    mov bl, dl
    mov bh, 0
    mov dl, [cs:bx + drive_map_numbers - drive_map - FIRST_DISK]
    pop bx
    push word [bp + 6]          ; the BIOS must see whether the caller allows interrupts
    mov bp, [bp]
    call far [cs:drive_map_bios - drive_map]
    push bp
    mov bp, sp                  ; [bp + 2] = DX, [bp + 4] = AX, [bp + 6] = BP, [bp + 8] = the caller's address
    pushf
    pop word [bp + 12]          ; IRET returns these flags to the caller
    cmp byte [bp + 5], PARAMETERS
    je .returned
    cmp byte [bp + 5], DISK_SIZE
    jne .restore
    test byte [bp + 12], CARRY
    jz .returned
.restore:
    mov dl, [bp + 2]
.returned:
    pop bp
    add sp, 6
    iret
.unchanged:
    jmp far [cs:drive_map_bios - drive_map]

    align 4, db 0
drive_map_bios:
    dd 0                        ; the handler of the BIOS, segment:offset
drive_map_numbers:
    times DISKS db 0            ; the disks' own numbers
drive_map_end:

%if drive_map_end - drive_map > 1024
  %error "drive_map.cpp reserves 1 KB"
%endif
