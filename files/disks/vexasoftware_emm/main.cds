# Boot menu of the disk "Vexa Rescue Software (EMM386 Support)".
#
# Each line is a word and its value. A comment begins with # as this one
# does. Paths begin at the root of this disk. An entry does not appear
# while a file of its command is not on the disk.

# The top line of the menu.
Set Title=Vexa Rescue Software (EMM386 Support)

# This script is on the disk because it has no system yet. It says how to
# give it one.
Print "This disk has no system yet."
Print
Print "It is for starting a DOS with the memory manager EMM386, for tools that"
Print "need expanded memory. That DOS may not be passed on with this program, so"
Print "it has to be yours: a start disk of your DOS or Windows, for example."
Print
Print "1. Make an image of the floppy: a file of exactly 1,474,560 bytes."
Print "2. Give it a name that ends in .img, and put it alone into the folder"
Print "     files\disks\vexasoftware_emm\dos"
Print "   of the program folder. Make the folder dos if it is not there."
Print "3. Make the CD again. This disk is then your floppy."
Print
Print "Instead of the image, the files of the floppy may lie there, with its boot"
Print "sector as bootsect.bin. The file README.TXT on this disk says more."
Wait

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
