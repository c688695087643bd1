; Starts when a machine boots from the CD: finds the drive and the sector that it came from, loads the rest of the
; loader, checks it and starts it. It is the first CD sector of boot/loader.bin, and the BIOS loads only this sector.
; From a stick or a hard disk, boot_record.asm loads it and enters it as a BIOS would.
;
; Memory map, which the rest of the loader keeps (see also loader.ld):
;   0000:0600-0000:06FF  variables of this program
;   ....-0000:7BFF       stack, downwards from 0000:7C00
;   0000:7C00-0000:83FF  this program (one CD sector); nothing changes it, because it is compared with the disc
;   0000:8400-1000:FFFF  the rest of the loader, at most 47 sectors
;   2000:0000-2000:7FFF  buffer of every read; it crosses no 64 KB boundary, as DMA requires
;
; The BIOS enters at 0000:7C00 or 07C0:0000 with the number of the drive in DL. The other registers are undefined. The
; program needs an 80386. A drive may have sectors of 2,048 bytes (CD) or of 512 bytes (the image on a stick or disk).

bits 16
cpu 386

EXTENDED_READ    equ 0x42       ; functions of INT 13h
EMULATION_STATUS equ 0x4B01
RESET            equ 0x00
SECTOR           equ 2048
PIECE            equ 16         ; sectors per read: 32 KB, a size that every BIOS accepts
TRIES            equ 4          ; the number of tries for each read
BUFFER           equ 0x2000     ; segment
STAGE1           equ 0x7C00     ; where the BIOS loads this program
STAGE2           equ 0x8400     ; where it loads the rest of the loader
DISK_BIT         equ 0x80       ; set in the number of every drive that is no floppy drive
LAST_DRIVE       equ 0xFF
SHORT_READ       equ 0xFF       ; shown as the BIOS error when the BIOS read fewer sectors and reported success

; Places in the image (ECMA-119 8, El Torito 1.2).
FIRST_DESCRIPTOR equ 16
BOOT_RECORD      equ 17
CATALOGUE        equ 0x47       ; offset of its sector in the boot record
BOOT_IMAGE       equ 0x28       ; offset of the sector of the boot image in the catalogue
FIRST_SEARCHED   equ 18
END_OF_SEARCH    equ 2066       ; 128 pieces

; The answer of EMULATION_STATUS: offsets and size.
ANSWER_DRIVE     equ 2
ANSWER_SECTOR    equ 4
ANSWER_SIZE      equ 0x13

org STAGE1

absolute 0x600
packet:     resb 16             ; disk address packet of INT 13h
answer:     resb 32             ; of EMULATION_STATUS
image:      resd 1              ; sector of this program in the image
piece:      resw 1              ; sectors per read of the rest
given:      resb 1              ; the drive that the BIOS named
drive:      resb 1              ; the drive in use
shift:      resb 1              ; a CD sector is 1 << shift sectors of the drive
search:     resb 1              ; 0: looks where the BIOS and the image say; 1: looks at every sector
error:      resb 1              ; what the BIOS said about the last failed read
result:     resb 1              ; AH after the last call of INT 13h

section .text

start:
    jmp 0x0000:begin            ; sets CS: some BIOSes enter at 07C0:0000

    times 64 - ($ - $$) db 0    ; programs that make images may write here (the boot information table from offset 8 on)
mark:                           ; scripts/join_loader.py finds this text and fills in the values behind it
    db 'DWLOADER'
rest_sectors:
    dw 0                        ; length of the rest
record_size:
    dw 0                        ; bytes of boot_record.asm, which the sector behind the rest holds; for tools/mkisofs
rest_sum:
    dd 0                        ; sum of its words of 32 bits
rest_sum_of_sums:
    dd 0                        ; sum of that sum after each word: it differs when words change places

begin:
    cli                         ; no interrupt may use the stack while SS:SP change
    xor ax, ax
    mov ss, ax
    mov sp, STAGE1
    mov ds, ax
    mov ax, BUFFER
    mov es, ax
    cld
    sti
    mov [given], dl
    mov byte [error], 0
    call check_memory
    call find
    call load
    call verify
    mov dl, [drive]
    mov dh, [shift]
    jmp 0x0000:STAGE2         ; to entry.asm

; Finds this program on a drive. Shows a message and does not return if no drive has it.
; IN: given. OUT: drive, shift, image. CLOBBERS: EAX, ECX, EDX, SI, DI, BP.
find:
    mov byte [search], 0
.again:
    mov dl, [given]
    call try_drive
    jnc .found
    mov dl, [given]
    or dl, DISK_BIT             ; some BIOSes lose this bit
    cmp dl, [given]
    je .ask
    call try_drive
    jnc .found
.ask:
    mov dl, [given]
    mov [drive], dl
    call ask
    jc .others
    mov dl, [answer + ANSWER_DRIVE]
    call try_drive
    jnc .found
.others:
    mov dl, LAST_DRIVE
.each:
    push dx
    call try_drive
    pop dx
    jnc .found
    dec dl
    js .each                    ; down to 80
    inc byte [search]
    cmp byte [search], 2
    jb .again
    mov si, not_found
    jmp stop
.found:
    ret

; Looks for this program on a drive. What the BIOS and the disc say about its place is only a guess, so each place is
; compared with this program.
; IN: DL = drive, search. OUT: CF = 0 if found: drive, shift, image. CLOBBERS: EAX, ECX, EDX, SI, DI, BP.
try_drive:
    mov [drive], dl
    call open_drive
    jc .end
    cmp byte [search], 0
    jne search_drive
    call ask
    jc .volume
    mov eax, [answer + ANSWER_SECTOR]
    call is_here
    jnc .end
.volume:
    mov eax, BOOT_RECORD
    call read_one
    jc .end
    mov si, boot_record
    mov cx, boot_record.size
    xor di, di
    repe cmpsb
    stc
    jne .end
    mov eax, [es:CATALOGUE]
    call read_one
    jc .end
    mov eax, [es:BOOT_IMAGE]
    call is_here
.end:
    ret

; Finds out whether a drive has an ISO 9660 volume, and the size of its sectors. What the BIOS says about the size is
; wrong on some machines.
; IN: drive. OUT: CF = 0 if it has: shift. CLOBBERS: EAX, CX.
open_drive:
    mov byte [shift], 0
.size:
    mov dword [es:1], 0         ; the drive may have sectors of another size and leave this place as it is
    mov eax, FIRST_DESCRIPTOR
    call read_one
    jc .other
    cmp dword [es:1], 'CD00'
    je .end                     ; CF = 0
.other:
    add byte [shift], 2         ; 512 bytes
    cmp byte [shift], 2
    je .size
    stc
.end:
    ret

; Asks the BIOS about the CD that the machine was started from. Some BIOSes do not know this function.
; IN: drive. OUT: CF = 0 if it answered: answer; otherwise zeros. CLOBBERS: EAX, CX, SI, DI.
ask:
    push es
    push ds
    pop es
    mov di, answer
    mov cx, 16
    xor ax, ax
    rep stosw
    pop es
    mov byte [answer], ANSWER_SIZE
    mov si, answer
    mov ax, EMULATION_STATUS
    jmp disk

; Searches the beginning of a drive for this program.
; IN: drive, shift. OUT: CF = 0 if found: image. CLOBBERS: EAX, ECX, DX, SI, DI, BP.
search_drive:
    mov eax, FIRST_SEARCHED
.piece:
    mov cx, PIECE
    call read
    jc .singly
    xor di, di
.sector:
    call compare
    je note_image
    inc eax
    add di, SECTOR
    cmp di, PIECE * SECTOR
    jb .sector
.next:
    cmp eax, END_OF_SEARCH
    jb .piece
.none:
    stc
    ret
.singly:
    mov bp, PIECE
    xor dx, dx                  ; readable sectors
.one:
    call read_one
    jc .unreadable
    inc dx
    xor di, di
    call compare
    je note_image
.unreadable:
    inc eax
    dec bp
    jnz .one
    test dx, dx
    jnz .next
    jmp .none                   ; behind the end of the disc

; Looks whether this program is at a sector of the drive.
; IN: EAX = sector; 0 is none. OUT: CF = 0 if so: image. CLOBBERS: CX, DI.
is_here:
    test eax, eax
    jz .no
    call read_one
    jc .end
    xor di, di
    call compare
    je note_image
.no:
    stc
.end:
    ret
note_image:
    mov [image], eax
    clc
    ret

; Compares a sector in the buffer with this program.
; IN: DI = its offset in the buffer. OUT: ZF = 1 if they are equal. CLOBBERS: CX.
compare:
    push si
    push di
    mov si, start
    mov cx, SECTOR / 4
    repe cmpsd
    pop di
    pop si
    ret

; Loads the rest of the loader. Shows a message and does not return if it cannot be read.
; IN: image. OUT: -. CLOBBERS: EAX, ECX, DX, SI, DI, BP.
load:
    mov word [piece], PIECE
    mov eax, [image]
    inc eax
    mov bp, [rest_sectors]
    mov dx, STAGE2 / 16           ; segment of the next piece
.next:
    movzx ecx, word [piece]
    cmp bp, cx
    jae .full
    mov cx, bp
.full:
    call read
    jnc .copy
    mov si, unreadable
    cmp word [piece], 1
    je stop
    mov word [piece], 1         ; some drives read a bad disc sector by sector only
    jmp .next
.copy:
    call copy
    add eax, ecx
    sub bp, cx
    jnz .next
    ret

; Copies sectors from the buffer.
; IN: CX = sectors, DX = segment to copy them to. OUT: DX = the segment behind them. CLOBBERS: SI, DI.
copy:
    push ds
    push es
    push cx
    push es
    pop ds
    mov es, dx
    xor si, si
    xor di, di
    shl cx, 9                   ; words of 32 bits
    rep movsd
    pop cx
    push cx
    shl cx, 7                   ; 16 bytes
    add dx, cx
    pop cx
    pop es
    pop ds
    ret

%include "verify.inc"

; Reads one sector to the start of the buffer.
; IN: EAX = sector of the image. OUT: CF. CLOBBERS: CX.
read_one:
    mov cx, 1
    ; falls through

; Reads sectors of the image to the start of the buffer, and repeats a failed read.
; IN: EAX = sector, CX = count (1 to PIECE), drive, shift, ES = BUFFER. OUT: CF = 0 if they were read, error otherwise.
; CLOBBERS: -.
read:
    pushad
    mov edi, eax
    mov bx, cx
    mov cl, [shift]
    shl bx, cl                  ; sectors of the drive
    xor edx, edx
    shld edx, edi, cl
    shl edi, cl                 ; EDX:EDI = first sector
    mov bp, TRIES
.try:
    mov word [packet], 16       ; fills the whole packet each time, because some BIOSes change it
    mov [packet + 2], bx
    mov word [packet + 4], 0
    mov [packet + 6], es
    mov [packet + 8], edi
    mov [packet + 12], edx
    mov si, packet
    mov ah, EXTENDED_READ
    call disk
    mov al, [result]
    jc .failed
    cmp [packet + 2], bx        ; some BIOSes read fewer sectors and report success
    je .end                     ; CF = 0
    mov al, SHORT_READ
.failed:
    mov [error], al
    mov ah, RESET
    call disk
    dec bp
    jnz .try
    stc
.end:
    popad
    ret

; Calls INT 13h. Saves all registers, because some BIOSes change registers that they should keep.
; IN: AX = function, SI = packet, drive. OUT: CF as the BIOS returns it, result. CLOBBERS: -.
disk:
    pushad
    push ds
    push es
    mov dl, [drive]
    int 0x13
    pop es
    pop ds
    mov [result], ah
    popad
    cld                         ; some BIOSes change DF and IF, too
    sti
    ret

%include "bios_error.inc"
%include "messages.inc"

boot_record:                    ; how the boot record begins
    db 0, 'CD001', 1, 'EL TORITO SPECIFICATION'
.size equ $ - boot_record
not_found:
    db 'The loader did not find the disc that it was started from (code 1).', 13, 10
    db 'Try another drive, or other settings of the drives in the BIOS.', 0
unreadable:
    db 'The disc could not be read (code 2, BIOS error ', PLACEHOLDER, ').', 13, 10
    db 'Check that its image is complete. Clean the disc, or write it again at a lower speed.', 0
damaged:
    db 'The loader on this disc is damaged (code 3).', 13, 10
    db 'Make the image again, and write it to another disc.', 0
restart:
    db 13, 10, 'Press a key to restart.', 13, 10, 0

%if rest_sectors - start != 72
  %error "scripts/join_loader.py expects the mark at offset 64"
%endif
%if STAGE2 != STAGE1 + SECTOR
  %error "the rest must follow this sector in memory as on the disc"
%endif
    times SECTOR - ($ - $$) db 0  ; the assembler refuses a program that is larger than a sector
