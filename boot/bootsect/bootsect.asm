; The CD boot sector of Windows Setup and the recovery tools: loads I386\SETUPLDR.BIN from the CD and starts it.
;
; One sector for three folders: what reads "I386" here reads "ERDC" or "OOBC" in the copies that the build patches. The
; folder's name stands once, and the messages are put together from it.
;
; Memory map:
;   0000:0400-0000:04FF  the BIOS's own data
;   ....-0000:7BFF       stack, downwards from 0000:7C00
;   0000:7C00-0000:83FF  this program (one CD sector)
;   0000:8400-0000:841F  variables
;   1000:0000-1000:7FFF  volume descriptors and folders, a piece at a time
;   2000:0000-           SETUPLDR.BIN, up to the end of what INT 12h calls memory
;
; Started at 0000:7C00 or 07C0:0000 with DL = drive; no other register is promised. Instructions of the 80386.

bits 16
cpu 386
org 0x7C00

TEXT_SCREEN      equ 0x0E       ; INT 10h: write a character as on a terminal
READ_SECTORS     equ 0x42       ; INT 13h
SECTOR           equ 2048
PIECE            equ 16         ; sectors in one read: 32 KB, which no BIOS refuses
TRIES            equ 4          ; one, and three more
BUFFER           equ 0x1000     ; segments, on 32 KB: a piece never crosses a 64 KB boundary
TARGET           equ 0x2000
TARGET_KB        equ TARGET / 64
LOW_MEMORY_KB    equ 640

; Volume descriptors and directory records of ISO 9660.
FIRST_DESCRIPTOR equ 16
PRIMARY          equ 1
TERMINATOR       equ 255
ROOT_RECORD      equ 156        ; in the primary descriptor
RECORD_LENGTH    equ 0
RECORD_XAR       equ 1          ; sectors of attributes before the content
RECORD_SECTOR    equ 2
RECORD_BYTES     equ 10
RECORD_FLAGS     equ 25
RECORD_NAME_SIZE equ 32
RECORD_NAME      equ 33
IS_FILE          equ 0
IS_FOLDER        equ 2
KIND             equ 6          ; folder, and "associated": a second file of the same name, never the one meant
MORE_EXTENTS     equ 0x80

absolute 0x8400
packet:     resb 16             ; of the read
extent:                         ; what is being read
.sector:    resd 1              ; the next sector
.count:     resd 1              ; how many sectors are left
found:                          ; what the search has found, as in `extent`
.sector:    resd 1
.count:     resd 1

section .text

start:
    jmp 0x0000:.here            ; some BIOSes enter at 07C0:0000: no memory operand before this
.here:
    cli                         ; the BIOS's own stack may lie anywhere
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

; Makes the root folder of the primary volume what is read next; says so when there is none.
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

; Looks for a name in the folder that is in `extent`, ignoring letter case. Of several entries the one that is spelled
; exactly so is taken, else the first; without any, says so.
; IN: SI = name, CX = its length, DL = IS_FILE or IS_FOLDER. OUT: extent = what was found.
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

; IN: found. OUT: extent, the same. CLOBBERS: EAX.
open_found:
    mov eax, [found.sector]
    mov [extent.sector], eax
    mov eax, [found.count]
    mov [extent.count], eax
    ret

EXACT equ 2
ALIKE equ 1                     ; but for letter case

; Looks for a name in one sector of a folder: a record never reaches into the next.
; IN: ES:BX = sector, SI, CX, DL as in `search`, DH = 0 or what was found before.
; OUT: DH = ALIKE or EXACT when found, then also `found`. CLOBBERS: BP, DI.
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
    jbe .pass                   ; nothing better than before
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

; IN: ES:DI = record, SI, CX, DL as in `search`. OUT: AL = 0 (another name or kind), ALIKE or EXACT. CLOBBERS: AH.
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

; IN: ES:DI = record. OUT: `found` = where its content stands. CLOBBERS: EAX.
note_record:
    movzx eax, byte [es:di + RECORD_XAR]
    add eax, [es:di + RECORD_SECTOR]
    mov [found.sector], eax
    mov eax, [es:di + RECORD_BYTES]
    add eax, SECTOR - 1
    rcr eax, 1                  ; with the carry of the sum: a size just below 4 GB stays large
    shr eax, 10
    test byte [es:di + RECORD_FLAGS], MORE_EXTENTS
    jz .whole
    mov eax, -1                 ; only the first part of something very large
.whole:
    mov [found.count], eax
    ret

; Says so when the file in `extent` is empty or does not fit, in whole sectors, into the memory that there is.
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

; Loads what is in `extent` to TARGET:0000.
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
; IN: extent, ES:0000 = place. OUT: AX = sectors read, 0 at the end; extent = the rest. CLOBBERS: upper half of EAX.
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

; Reads sectors of the CD, several times if need be; says so when they cannot be read.
; IN: EAX = sector, CX = how many (1 to PIECE), ES:0000 = place. OUT: -. CLOBBERS: -.
read:
    push dx
    push si
    mov dh, TRIES
.try:
    mov word [packet], 16       ; the whole packet each time: a BIOS may write to it
    mov [packet + 2], cx
    mov word [packet + 4], 0
    mov [packet + 6], es
    mov [packet + 8], eax
    mov dword [packet + 12], 0
    push ax
    mov ah, READ_SECTORS
    mov si, packet
    call disk
    pop ax
    jc .failed
    cmp [packet + 2], cx        ; a BIOS may read less and call it a success
    je .end
.failed:
    dec dh
    jz .unreadable
    push ax
    mov ah, 0                   ; reset
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

; Calls the BIOS's disk services for our drive. It may change registers that are none of its business.
; IN: AH = service, SI = its packet. OUT: CF as the BIOS leaves it. CLOBBERS: -.
disk:
    pushad
    push ds
    push es
    mov dl, [drive]
    int 0x13
    pop es
    pop ds
    popad
    cld                         ; nor are flags promised, but for CF
    sti
    ret

; Shows a text, waits for a key and starts the machine again.
; IN: SI = text. OUT: does not return.
stop:
    push si
.forget:
    mov ah, 1                   ; a key that was pressed before is no answer to the text
    int 0x16
    jz .show
    mov ah, 0
    int 0x16
    jmp .forget
.show:
    mov si, new_line
    call print
    pop si
    call print
    mov si, restart
    call print
    mov ah, 0
    int 0x16
    mov word [0x0472], 0x1234   ; no memory test
    jmp 0xFFFF:0x0000

PATH equ 1                      ; in a text: the file's path, so that the folder's name stands once

; IN: SI = text ended by NUL. OUT: shown through the BIOS. CLOBBERS: AX, BX, SI.
print:
    lodsb
    test al, al
    jz .end
    cmp al, PATH
    jne .letter
    push si
    mov si, path
    call print
    pop si
    jmp print
.letter:
    mov ah, TEXT_SCREEN
    mov bx, 7                   ; page 0, light grey
    int 0x10
    jmp print
.end:
    ret

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
    db PATH, ' was not found on this CD', 0
empty:
    db PATH, ' is empty', 0
too_large:
    db PATH, ' is too large for the memory of this machine', 0
unreadable:
    db 'The CD could not be read', 0
no_volume:
    db 'This CD has no ISO 9660 volume', 0
restart:
    db 13, 10, 'Press a key to restart.', 13, 10, 0
new_line:
    db 13, 10, 0
drive:
    db 0

    times SECTOR - ($ - $$) db 0  ; refused by the assembler when there is more
