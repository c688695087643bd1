; Replaces SETUPLDR.BIN in tests. It prints the folder's name that it contains and its registers at the start, on the
; screen and on COM1:
;
;   SETUPLDR: folder=i386 segment=2000 drive=E0 ds=0000 es=0000 ss=0000 sp=7C00
;
; NAME is the folder's name, which occurs once so that the build can patch it. SIZE is the size of the file in bytes. A
; pattern that depends on the offset fills the file after the program. When the loaded bytes differ from the pattern,
; the program prints "SETUPLDR: damaged" instead.
;
; Memory map: the file at <segment>:0000, in any segment; the stack of the program that started it.

%ifndef NAME
  %define NAME 'i386'
%endif
%ifndef SIZE
  %define SIZE 100001
%endif

; The byte at an offset. Below 512 KB no two sectors of 2,048 bytes are equal.
%define PATTERN(offset) ((((offset) >> 8) ^ (((offset) >> 16) * 37)) & 0xFF)

COM1 equ 0x3F8

bits 16
cpu 386
org 0

start:
    push sp                     ; saves the registers; they are printed in the reverse order
    push ss
    push es
    push ds
    push dx
    push cs
    mov ax, cs
    mov ds, ax
    cld
    call open_serial
    mov si, begin
    call print
    call check
    mov si, damaged
    jne .end
    mov si, folder
    call print
    pop ax
    mov si, segment_text
    call print_word
    pop ax
    mov si, drive_text
    call print
    call print_byte
    pop ax
    mov si, ds_text
    call print_word
    pop ax
    mov si, es_text
    call print_word
    pop ax
    mov si, ss_text
    call print_word
    pop ax
    mov si, sp_text
    call print_word
    mov si, end_of_line
.end:
    call print
.halt:
    cli
    hlt
    jmp .halt

; Compares everything that follows the program with the pattern.
; IN: CS = segment of the file. OUT: ZF = 1 when they are equal. CLOBBERS: EAX, EBX, ECX, EDI, ES.
check:
    mov edi, pattern
.byte:
    cmp edi, SIZE
    je .end
    mov ecx, edi
    shr ecx, 16
    mov eax, ecx
    shl ax, 12                  ; a new segment every 64 KB
    mov bx, cs
    add ax, bx
    mov es, ax
    imul ax, cx, 37
    mov cx, di
    xor al, ch
    cmp al, [es:di]
    lea edi, [edi + 1]          ; does not change the flags
    je .byte
.end:
    ret

; Prints a text and a number of four digits.
; IN: SI = text, AX = number. OUT: -. CLOBBERS: BX, DX, SI.
print_word:
    call print
    xchg al, ah
    call print_byte
    xchg al, ah
    ; falls through

; Prints a number of two digits.
; IN: AL = number. OUT: -. CLOBBERS: BX, DX.
print_byte:
    push ax
    push ax
    shr al, 4
    call print_digit
    pop ax
    and al, 0x0F
    call print_digit
    pop ax
    ret

; Prints a hexadecimal digit.
; IN: AL = 0 to 15. OUT: -. CLOBBERS: AX, BX, DX.
print_digit:
    cmp al, 10
    sbb al, 0x69
    das
    jmp print_letter

; Prints a text.
; IN: SI = text ended by NUL. OUT: -. CLOBBERS: BX, DX, SI.
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

; Prints a character on the screen and on COM1.
; IN: AL = character. OUT: -. CLOBBERS: AX, BX, DX.
print_letter:
    push ax
    mov ah, 0x0E
    mov bx, 7
    int 0x10
    mov dx, COM1 + 5
.wait:
    in al, dx
    test al, 0x20               ; the transmitter is ready for a byte
    jz .wait
    pop ax
    mov dx, COM1
    out dx, al
    ret

; Sets COM1 to 115200 bits a second, 8 data bits, no parity, 1 stop bit.
; IN: -. OUT: -. CLOBBERS: AX, DX.
open_serial:
    mov dx, COM1 + 3
    mov al, 0x80
    out dx, al
    mov dx, COM1
    mov ax, 1
    out dx, ax
    mov dx, COM1 + 3
    mov al, 0x03
    out dx, al
    ret

begin:
    db 'SETUPLDR: ', 0
damaged:
    db 'damaged', 13, 10, 0
folder:
    db 'folder=', NAME, 0
segment_text:
    db ' segment=', 0
drive_text:
    db ' drive=', 0
ds_text:
    db ' ds=', 0
es_text:
    db ' es=', 0
ss_text:
    db ' ss=', 0
sp_text:
    db ' sp=', 0
end_of_line:
    db 13, 10, 0

pattern:                        ; the assembler refuses a SIZE that is smaller than the program
%assign at pattern - start
%rep (SIZE - at + 255) / 256 + 1
  %assign page_end (at | 0xFF) + 1
  %if page_end > SIZE
    %assign page_end SIZE
  %endif
    times page_end - at db PATTERN(at)
  %assign at page_end
%endrep
