; Starts a CD boot sector, or the boot record for disks, in ways in which the emulator's BIOS does not start it. The
; sector follows this program in the boot image of the CD. The program reads it to 0000:7C00 and enters it with the
; drive in DL, random values in the other registers and a key in the keyboard buffer. Definitions for the assembler
; select a variant:
;
; SEGMENT    0 enters at 0000:7C00, 0x7C0 at 07C0:0000
; MEMORY_KB  the size that INT 12h reports to the sector
; DRIVE      the number of the drive that the sector gets, instead of that of the CD
; A20_OFF    switches line A20 off
; OLD_BIOS   installs an INT 13h that does not read with disk address packets. With 1 its function 41h fails, with 2 it
;            succeeds but does not return AA55h, with 3 it says that there are no functions for such packets. With 4
;            these functions read too few sectors and report success
; CHANGED    changes the last byte of the sector in memory, so that it differs from the one on the CD
; BAD_BIOS   installs a faulty INT 13h. The CD drive gets the number 9F, and there is no other drive. The function
;            that tells where the machine was started from is unknown. The first try of each read fails, the second
;            reads too few sectors but reports success, the third succeeds. It destroys every register, and the packet
;            after a failure. It shows an objection to reads of more than 16 sectors or across 64 KB, and to a new try
;            without a reset
;
; Memory map:
;   0000:1000-0000:17FF  this program after it has moved itself
;   0000:1800-0000:1FFF  buffer for one sector
;   ....-0000:7BFF       stack
;   0000:7C00-0000:83FF  this program as the BIOS loads it, then the sector

bits 16
cpu 386
org 0x1000

%ifndef SEGMENT
  %define SEGMENT 0
%endif

SCRATCH           equ 0x1800
BOOT_RECORD       equ 17        ; its sector (El Torito 1.2)
CATALOGUE         equ 0x47      ; offset of its sector in the boot record
IMAGE             equ 0x28      ; offset of its sector in the catalogue
MEMORY_SIZE       equ 0x413     ; the BIOS variable that INT 12h returns
DISK_VECTOR       equ 0x13 * 4
MOST_SECTORS      equ 16
BAD_DRIVE         equ 0x9F
SYSTEM_CONTROL    equ 0x92      ; a port; bit 1 is A20

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
%ifdef DRIVE
    mov dl, DRIVE
%endif
%ifdef CHANGED
    xor byte [0x7C00 + 2047], 1
%endif
%ifdef A20_OFF
    in al, SYSTEM_CONTROL
    and al, 0xFC
    out SYSTEM_CONTROL, al
%endif
%ifdef OLD_BIOS
  %define HANDLER old_bios
%endif
%ifdef BAD_BIOS
  %define HANDLER bad_bios
    mov [real_drive], dl
    mov dl, BAD_DRIVE
%endif
%ifdef HANDLER
    cli
    mov eax, [DISK_VECTOR]
    mov [bios], eax
    mov word [DISK_VECTOR], HANDLER
    mov [DISK_VECTOR + 2], cs
%endif
    mov ah, 5                   ; puts a key into the keyboard buffer
    mov cx, 0x1E61
    int 0x16
    cli
    mov ax, 0x9000              ; moves the stack, as some BIOSes do
    mov ss, ax
    mov sp, 0x1000
    call ruin
    jmp SEGMENT:0x7C00 - SEGMENT * 16

; Reads a sector of the CD.
; IN: EAX = sector, CX = buffer, DL = drive. OUT: -. CLOBBERS: AX, SI.
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

%include "say.inc"

; Destroys all registers except SS:SP and DL, and sets DF.
; IN: -. OUT: -. CLOBBERS: all registers except SS:SP and DL, all flags except CF.
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

%ifdef OLD_BIOS
; The INT 13h of OLD_BIOS. It calls the one of the BIOS for all other functions.
old_bios:
  %if OLD_BIOS == 4
    cmp ah, 0x42
    jne .bios
    dec word [si + 2]
    clc
    retf 2
  %else
    cmp ah, 0x41
    jne .bios
    %if OLD_BIOS == 3
      mov cx, 0xFFFE
    %else
      mov cx, 1
    %endif
    %if OLD_BIOS != 2
      mov bx, 0xAA55
    %endif
    %if OLD_BIOS == 1
      stc
    %else
      clc
    %endif
    retf 2
  %endif
.bios:
    jmp far [cs:bios]
%endif

; The faulty INT 13h. It calls the one of the BIOS.
bad_bios:
    cld
    cmp dl, BAD_DRIVE
    jne .unknown
    test ah, ah
    je .reset
    cmp ah, 0x4B
    je .unknown
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
    lea ecx, [ebx + ecx + 2047] ; the address of the last byte
    xor ecx, ebx
    shr ecx, 16
    jnz .objection              ; not in the same 64 KB as the first byte
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
    jc .return                  ; a real error of the CD
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
.unknown:
    stc
    jmp .return
.short:
    dec word [si + 2]
.good:
    clc
.return:
    call ruin
    mov dl, al                  ; destroys DL, too
    retf 2                      ; returns the current flags: CF, interrupts off, DF set
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
