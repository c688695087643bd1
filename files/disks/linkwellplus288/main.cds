# Boot menu of the disk "Vexa Rescue Software Plus (Linkwell)".
#
# Each line is a word and its value. A comment begins with # as this one
# does. Paths begin at the root of this disk. An entry does not appear
# while a file of its command is not on the disk.

# The top line of the menu.
Set Title=Vexa Rescue Software Plus (Linkwell)

# The default entry starts when nobody has pressed a key for this number of
# seconds. With 0 the menu waits forever.
Set Timeout=10
Set Default=N

Entry Start from the network
  Key N
  Help Tries one network card after the other. Ctrl-B there leads to a command line.
  Linux boot/ipxe.krn
EndEntry

# The choice of a network card. Only a disk that was made with driver
# selection has this file. It also ends the time-out set above.
IfFile boot/scripts/cards.cds
  Include boot/scripts/cards.cds
EndIf

# Programs for two kinds of processors: only one of these entries appears.
Entry Memory test
  Key M
  Help Memtest86+ tests the memory until Esc is pressed, which restarts the computer.
  IfProcessor 64
  Linux boot/memtest.x64
EndEntry

Entry Memory test
  Key M
  Help Memtest86+ tests the memory until Esc is pressed, which restarts the computer.
  IfProcessor 32
  Linux boot/memtest.x32
EndEntry

# The image of GRUB's own floppy, which memdisk starts from memory.
Entry GRUB
  Key G
  Help Starts systems whose own boot loader is damaged. Press c there for a command line.
  Floppy boot/grub.gz
EndEntry

Entry First hard disk
  Key H
  Help Starts the system on the first hard disk, as if this disk were not there.
  HardDisk 1
EndEntry

Entry Restart
  Key R
  Help Restarts the computer.
  Restart
EndEntry

Entry Power off
  Key P
  Help Switches the computer off.
  PowerOff
EndEntry
