; Loads I386\SETUPLDR.BIN from the CD and starts it: this is the CD boot sector of Windows Setup and the recovery tools.
;
; The build replaces the name "I386" by "ERDC" or "OOBC" in two copies of this sector. So the name occurs exactly once,
; and the messages are put together from it. Tests: ShippedFiles.BootSectors_AreOneCdSectorWithOneNameToPatch.
;
; Memory map:
;   0000:0400-0000:04FF  BIOS data area
;   ....-0000:7BFF       stack, downwards from 0000:7C00
;   0000:7C00-0000:83FF  this program (one CD sector)
;   0000:8400-0000:841F  variables
;   1000:0000-1000:7FFF  buffer for volume descriptors and directories, 16 sectors at a time
;   2000:0000-           SETUPLDR.BIN, up to the end of the memory that INT 12h reports
;
; The BIOS enters at 0000:7C00 or 07C0:0000 with the number of the drive in DL. The other registers are undefined. The
; program needs an 80386.

bits 16
cpu 386
org 0x7C00

EXTENDED_READ    equ 0x42       ; function of INT 13h
SECTOR           equ 2048
PIECE            equ 16         ; sectors per read: 32 KB, a size that every BIOS accepts
TRIES            equ 4          ; the number of tries for each read
BUFFER           equ 0x1000     ; segments at multiples of 32 KB: no piece crosses a 64 KB boundary, as DMA requires
TARGET           equ 0x2000
TARGET_KB        equ TARGET / 64
LOW_MEMORY_KB    equ 640

; Offsets and values of volume descriptors (ECMA-119 8) and directory records (ECMA-119 9.1).
FIRST_DESCRIPTOR equ 16
PRIMARY          equ 1
TERMINATOR       equ 255
ROOT_RECORD      equ 156        ; offset in the primary descriptor
RECORD_LENGTH    equ 0
RECORD_XAR       equ 1          ; length of the extended attribute record, in sectors before the content
RECORD_SECTOR    equ 2
RECORD_BYTES     equ 10
RECORD_FLAGS     equ 25
RECORD_NAME_SIZE equ 32
RECORD_NAME      equ 33
IS_FILE          equ 0
IS_FOLDER        equ 2
KIND             equ 6          ; the flags "directory" and "associated file", which is a second stream of a file
MORE_EXTENTS     equ 0x80

absolute 0x8400
packet:     resb 16             ; disk address packet of INT 13h
extent:                         ; the extent being read
.sector:    resd 1              ; the next sector
.count:     resd 1              ; how many sectors are left
found:                          ; the extent that the search has found
.sector:    resd 1
.count:     resd 1

section .text

start:
    jmp 0x0000:.here            ; sets CS: some BIOSes enter at 07C0:0000
.here:
    cli                         ; no interrupt may use the stack while SS:SP change
    xor ax, ax
    mov ss, ax
    mov sp, 0x7C00
    mov ds, ax
    mov es, ax
    cld
    sti
    mov [drive], dl

    call open_root
    mov si, folder_name
    mov cx, folder_name.size
    mov dl, IS_FOLDER
    call search
    mov si, file_name
    mov cx, file_name.size
    mov dl, IS_FILE
    call search
    call check_size
    call load

    xor ax, ax                  ; DS and SS are 0 already, SP is 7C00
    mov es, ax
    mov dl, [drive]
    jmp TARGET:0x0000

; Sets `extent` to the root directory of the volume. Shows a message and does not return if there is no primary
; descriptor.
; IN: -. OUT: extent. CLOBBERS: EAX, CX, DI, ES.
open_root:
    mov ax, BUFFER
    mov es, ax
    mov eax, FIRST_DESCRIPTOR
.next:
    mov cx, 1
    call read
    cmp dword [es:1], 'CD00'
    jne .none
    cmp byte [es:5], '1'
    jne .none
    cmp byte [es:0], PRIMARY
    je .primary
    cmp byte [es:0], TERMINATOR
    je .none
    inc eax
    jmp .next
.none:
    mov si, no_volume
    jmp stop
.primary:
    mov di, ROOT_RECORD
    call note_record
    jmp open_found

; Searches the directory in `extent` for a name in any letter case. Takes the entry with exactly this spelling, or else
; the first one. Shows a message and does not return if there is no such entry.
; IN: SI = name, CX = its length, DL = IS_FILE or IS_FOLDER. OUT: extent = that of the entry.
; CLOBBERS: EAX, BX, DH, BP, DI, ES.
search:
    mov ax, BUFFER
    mov es, ax
    mov dh, 0                   ; nothing found yet
.piece:
    call read_piece
    test ax, ax
    jz .end
    xor bx, bx
.sector:
    call search_sector
    cmp dh, EXACT
    je open_found
    add bx, SECTOR
    dec ax
    jnz .sector
    jmp .piece
.end:
    test dh, dh
    jnz open_found
    mov si, missing
    jmp stop

; Copies `found` to `extent`.
; IN: found. OUT: extent. CLOBBERS: EAX.
open_found:
    mov eax, [found.sector]
    mov [extent.sector], eax
    mov eax, [found.count]
    mov [extent.count], eax
    ret

EXACT equ 2
ALIKE equ 1                     ; equal except for letter case

; Searches one sector of a directory. No record crosses the border of a sector.
; IN: ES:BX = sector, SI, CX, DL as in `search`, DH = 0, or ALIKE when an earlier sector has the name.
; OUT: DH = 0, ALIKE or EXACT; `found` when DH has become larger. CLOBBERS: BP, DI.
search_sector:
    push eax
    mov di, bx
    lea bp, [bx + SECTOR]
.record:
    movzx ax, byte [es:di + RECORD_LENGTH]
    test al, al
    jz .end                     ; no further record in this sector
    add ax, di
    push ax
    call compare
    cmp al, dh
    jbe .pass                   ; no better match than before
    mov dh, al
    call note_record
.pass:
    pop di                      ; the next record
    cmp dh, EXACT
    je .end
    cmp di, bp
    jb .record
.end:
    pop eax
    ret

; Compares a record with the name. A version ";1" after the name in the record is ignored.
; IN: ES:DI = record, SI, CX, DL as in `search`. OUT: AL = 0 (other name or kind), ALIKE or EXACT. CLOBBERS: AH.
compare:
    push bx
    push cx
    push si
    push di
    mov al, [es:di + RECORD_FLAGS]
    and al, KIND
    cmp al, dl
    jne .other
    movzx bx, byte [es:di + RECORD_NAME_SIZE]
    add di, RECORD_NAME
    sub bx, cx
    jz .letters
    cmp bx, 2
    jne .other
    mov bx, cx
    cmp word [es:di + bx], ';1'
    jne .other
.letters:
    mov ah, EXACT
.letter:
    mov al, [es:di]
    inc di
    cmp al, 'a'
    jb .upper
    cmp al, 'z'
    ja .upper
    sub al, 'a' - 'A'
    mov ah, ALIKE
.upper:
    cmp al, [si]
    jne .other
    inc si
    loop .letter
    mov al, ah
    jmp .end
.other:
    mov al, 0
.end:
    pop di
    pop si
    pop cx
    pop bx
    ret

; Sets `found` to the extent of a record.
; IN: ES:DI = record. OUT: found. CLOBBERS: EAX.
note_record:
    movzx eax, byte [es:di + RECORD_XAR]
    add eax, [es:di + RECORD_SECTOR]
    mov [found.sector], eax
    mov eax, [es:di + RECORD_BYTES]
    add eax, SECTOR - 1
    rcr eax, 1                  ; includes the carry, which the sum sets for a size just below 4 GB
    shr eax, 10
    test byte [es:di + RECORD_FLAGS], MORE_EXTENTS
    jz .whole
    mov eax, -1                 ; a file of several extents is larger than 4 GB: too large for the memory
.whole:
    mov [found.count], eax
    ret

; Shows a message and does not return if the file in `extent` is empty, or if its sectors do not fit into the memory.
; IN: extent. OUT: -. CLOBBERS: EAX, SI.
check_size:
    mov si, empty
    cmp dword [extent.count], 0
    je stop
    int 0x12                    ; AX = KB of memory
    cmp ax, LOW_MEMORY_KB
    jbe .known
    mov ax, LOW_MEMORY_KB
.known:
    mov si, too_large
    sub ax, TARGET_KB
    jbe stop
    shr ax, 1                   ; sectors
    movzx eax, ax
    cmp [extent.count], eax
    ja stop
    ret

; Reads `extent` to TARGET:0000.
; IN: extent. OUT: -. CLOBBERS: EAX, ES.
load:
    mov ax, TARGET
.piece:
    mov es, ax
    call read_piece
    test ax, ax
    jz .end
    mov ax, es
    add ax, PIECE * SECTOR / 16
    jmp .piece
.end:
    ret

; Reads the next piece of `extent`.
; IN: extent, ES:0000 = buffer. OUT: AX = sectors read, 0 at the end; extent = the part not yet read.
; CLOBBERS: upper half of EAX.
read_piece:
    push ecx
    mov ecx, PIECE
    cmp [extent.count], ecx
    jae .full
    mov ecx, [extent.count]
.full:
    jecxz .end
    mov eax, [extent.sector]
    call read
    add [extent.sector], ecx
    sub [extent.count], ecx
.end:
    mov ax, cx
    pop ecx
    ret

; Reads sectors of the CD and repeats a failed read. Shows a message and does not return if all tries have failed.
; IN: EAX = sector, CX = count (1 to PIECE), ES:0000 = buffer. OUT: -. CLOBBERS: -.
read:
    push dx
    push si
    mov dh, TRIES
.try:
    mov word [packet], 16       ; fills the whole packet each time, because some BIOSes change it
    mov [packet + 2], cx
    mov word [packet + 4], 0
    mov [packet + 6], es
    mov [packet + 8], eax
    mov dword [packet + 12], 0
    push ax
    mov ah, EXTENDED_READ
    mov si, packet
    call disk
    pop ax
    jc .failed
    cmp [packet + 2], cx        ; some BIOSes read fewer sectors and report success
    je .end
.failed:
    dec dh
    jz .unreadable
    push ax
    mov ah, 0                   ; function 0 of INT 13h: reset the drive
    call disk
    pop ax
    jmp .try
.end:
    pop si
    pop dx
    ret
.unreadable:
    mov si, unreadable
    jmp stop

; Calls INT 13h for the CD drive. Saves all registers, because some BIOSes change registers that they should keep.
; IN: AH = function, SI = packet. OUT: CF as the BIOS returns it. CLOBBERS: -.
disk:
    pushad
    push ds
    push es
    mov dl, [drive]
    int 0x13
    pop es
    pop ds
    popad
    cld                         ; some BIOSes change DF and IF, too
    sti
    ret

; Shows the path of SETUPLDR.BIN, for which PLACEHOLDER stands in a text.
; IN: -. OUT: -. CLOBBERS: AX, BX.
print_placeholder:
    push si
    mov si, path
    call print
    pop si
    ret

%include "messages.inc"

path:
folder_name:
    db 'I386'
.size equ $ - folder_name
    db '\'
file_name:
    db 'SETUPLDR.BIN'
.size equ $ - file_name
    db 0
missing:
    db PLACEHOLDER, ' was not found on this CD', 0
empty:
    db PLACEHOLDER, ' is empty', 0
too_large:
    db PLACEHOLDER, ' is too large for the memory of this machine', 0
unreadable:
    db 'The CD could not be read', 0
no_volume:
    db 'This CD has no ISO 9660 volume', 0
restart:
    db 13, 10, 'Press a key to restart.', 13, 10, 0
drive:
    db 0

    times SECTOR - ($ - $$) db 0  ; the assembler refuses a program that is larger than a sector
