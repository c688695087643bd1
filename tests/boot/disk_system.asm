; The boot sector of a hard disk for tests. It shows what a system sees that starts from this disk:
;
;   DISK first drive=80 read=1 extended=1 dl=80 if=1 error=1 disks=02 size=17A0
;   memory=027E other=CD001
;
; read, extended: 1 when functions 02h and 42h of INT 13h read this sector from the drive that it was started from.
; dl, if: DL and the interrupt flag after these calls. error: the carry flag after a read beyond the end, 2 if DL has
; changed. disks, size: what functions 08h and 15h return in DL and DX. memory: KB of base memory. other: the text at
; offset 1 of sector 64 of drive 81h, which is the name of an ISO 9660 volume; "?" when it cannot be read.
;
; Definitions for the assembler: NAME is the name of the disk. With CHAIN, the sector starts the drive of that number
; when it runs for the first time, and shows the text above when it runs again.
;
; Memory map:
;   0000:0500            a word that says that CHAIN was done
;   0000:0600            the routine that does it
;   0000:7000            variables
;   ....-0000:7BFF       stack
;   0000:7C00-0000:7DFF  this program
;   0000:8000-0000:81FF  buffer

bits 16
cpu 386
org 0x7C00

DONE    equ 0x500
MOVED   equ 0x600
BUFFER  equ 0x8000
DRIVE   equ 0x7000
PACKET  equ 0x7010

start:
    cli
    xor ax, ax
    mov ds, ax
    mov es, ax
    mov ss, ax
    mov sp, 0x7C00
    sti
    cld
%ifdef CHAIN
    cmp word [DONE], 'CH'
    je system
    mov word [DONE], 'CH'
    mov si, chain
    mov di, MOVED
    mov cx, chain_end - chain
    rep movsb
    jmp 0x0000:MOVED

; Starts another drive, from MOVED.
; IN: DS = ES = 0. OUT: does not return.
chain:
    mov ax, 0x0201
    mov bx, 0x7C00
    mov cx, 1
    mov dx, CHAIN
    int 0x13
    jmp 0x0000:0x7C00
chain_end:
%endif

system:
    mov [DRIVE], dl
    mov si, name
    call print
    mov al, [DRIVE]
    call print_byte
    mov ax, 0x0201
    mov bx, BUFFER
    mov cx, 1
    mov dh, 0
    int 0x13
    mov si, read_text
    call compare
    mov eax, 0
    mov dl, [DRIVE]
    call read
    pushf
    mov si, extended_text
    call compare
    mov al, dl
    mov si, dl_text
    call print
    call print_byte
    pop ax
    shr ax, 9                   ; IF
    and al, 1
    mov si, if_text
    call print_number
    mov eax, 0x7FFFFFFF
    call read
    setc al
    cmp dl, [DRIVE]
    je .same
    mov al, 2
.same:
    mov si, error_text
    call print_number
    mov ah, 0x08
    int 0x13
    push cs
    pop es                      ; the function changes it
    mov si, disks_text
    call print
    mov al, dl
    call print_byte
    mov dl, [DRIVE]
    mov ah, 0x15
    int 0x13
    mov si, size_text
    mov ax, dx
    call print_word
    int 0x12
    mov si, memory_text
    call print_word
    mov si, other_text
    call print
    mov byte [BUFFER + 1], '?'
    mov byte [BUFFER + 2], 0
    mov eax, 64
    mov dl, 0x81
    call read
    mov byte [BUFFER + 6], 0
    mov si, BUFFER + 1
    call print
.halt:
    hlt
    jmp .halt

; Reads a sector.
; IN: EAX = sector, DL = drive. OUT: CF and DL as the BIOS returns them. CLOBBERS: AX, SI.
read:
    mov si, PACKET
    mov dword [si], 1 << 16 | 16
    mov dword [si + 4], BUFFER
    mov [si + 8], eax
    mov dword [si + 12], 0
    mov ah, 0x42
    int 0x13
    ret

; Shows whether the buffer holds this sector, and changes it.
; IN: SI = text. OUT: -. CLOBBERS: AX, BX, CX, SI, DI.
compare:
    push si
    mov si, start
    mov di, BUFFER
    mov cx, 256
    repe cmpsw
    mov byte [BUFFER], 0
    sete al
    pop si
    ; falls through

; Shows a text and a digit.
; IN: SI = text, AL = 0 to 9. OUT: -. CLOBBERS: AX, BX, SI.
print_number:
    call print
    jmp print_digit

; Shows a text and a number of four digits.
; IN: SI = text, AX = number. OUT: -. CLOBBERS: AX, BX, SI.
print_word:
    call print
    push ax
    mov al, ah
    call print_byte
    pop ax
    ; falls through

; Shows a number of two digits.
; IN: AL = number. OUT: -. CLOBBERS: AX, BX.
print_byte:
    push ax
    shr al, 4
    call print_digit
    pop ax
    and al, 0x0F
    ; falls through

; Shows a hexadecimal digit.
; IN: AL = 0 to 15. OUT: -. CLOBBERS: AX, BX.
print_digit:
    cmp al, 10
    sbb al, 0x69
    das
    ; falls through

; Shows a character.
; IN: AL. OUT: -. CLOBBERS: AX, BX.
print_letter:
    mov ah, 0x0E
    mov bx, 7
    int 0x10
    ret

; Shows a text.
; IN: SI = text ended by NUL. OUT: -. CLOBBERS: BX, SI.
print:
    push ax
.next:
    lodsb
    test al, al
    jz .end
    call print_letter
    jmp .next
.end:
    pop ax
    ret

name:
    db 'DISK ', NAME, ' drive=', 0
read_text:
    db ' read=', 0
extended_text:
    db ' extended=', 0
dl_text:
    db ' dl=', 0
if_text:
    db ' if=', 0
error_text:
    db ' error=', 0
disks_text:
    db ' disks=', 0
size_text:
    db ' size=', 0
memory_text:
    db 13, 10, 'memory=', 0
other_text:
    db ' other=', 0

    times 510 - ($ - $$) db 0
    dw 0xAA55
