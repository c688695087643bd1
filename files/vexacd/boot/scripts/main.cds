# Boot menu of the Vexa Rescue CD.
#
# This file is yours to edit, but entries of your own are better kept in boot/scripts/local.cds, which a new version of
# the program does not replace. See the end of this file.
#
# Each line is a word and its value. Words may have any letter case. A comment begins with # or ; as this one does.
# Paths begin at the root of the CD. An entry does not appear while a file of its command is not on the CD.

# Password protection of the menu. The wizard replaces the next two lines. With a 1 the menu asks for the password
# before it does anything. The password stands between the quotes, as plain text.
Set PasswordRequest=0
Set PasswordString=""

# The top line of the menu.
Set Title=Vexa Rescue CD

# When nobody has pressed a key for this number of seconds, the default entry starts. With 0 the menu waits forever.
Set Timeout=30

# The default entry: its hot key, or its place in the menu. Windows Setup restarts the computer while this CD is still
# in the drive, and must then go on from the hard disk.
Set Default=H

# An entry: its text, the letter that starts it, a line of help, and one command.
Entry First hard disk
  Key H
  Help Starts the system on the first hard disk, as if this CD were not in the drive.
  HardDisk 1
EndEntry

# "Floppy" starts the image of a floppy disk from memory.
Entry Vexa Rescue Software
  Key S
  Help Starts the disk with the memory test Memtest86+ and the boot loader GRUB.
  Floppy boot/images/vexastart.img
EndEntry

Entry Vexa Rescue Software (EMM386 Support)
  Key E
  Help Starts the disk with your own DOS and EMM386, or tells how to give it one.
  Floppy boot/images/vexaemm.img
EndEntry

Entry Vexa Network Access
  Key N
  Help Starts this computer from the network, with iPXE.
  Floppy boot/images/vexanet.img
EndEntry

Entry Vexa Windows Setup Launcher
  Key L
  Help Starts the disk with your own DOS, for the setup of Windows 98 or Me, or tells how to give it one.
  Floppy boot/images/vexawin.img
EndEntry

# "CdSector" starts a boot sector for CDs. It needs a CD drive: from a USB stick, the menu shows it in grey.
Entry Windows 2000/XP Setup
  Key W
  Help Installs or repairs Windows 2000, Windows XP or Windows Server 2003 from this CD.
  CdSector boot/images/w2ksect.bin
EndEntry

Entry ERD Commander 2002/2003
  Key C
  Help Starts the recovery tool ERD Commander.
  CdSector boot/images/erdc.bin
EndEntry

Entry O&O BlueCon XXL
  Key B
  Help Starts the recovery tool O&O BlueCon.
  CdSector boot/images/oobc.bin
EndEntry

# A submenu holds the entries up to EndMenu. Esc leaves it.
Menu This computer
  Key T
  Help Other disks, and what is in this computer.

  Entry Second hard disk
    Key S
    Help Starts the system on the second hard disk.
    HardDisk 2
  EndEntry

  # The BIOS goes on with its list of boot devices.
  Entry Next boot device
    Key N
    Help Goes on with the next device in the boot order of the BIOS.
    NextDevice
  EndEntry

  Entry Memory and disks
    Key M
    Help Shows how much memory and which disks this computer has.
    Overview
  EndEntry
EndMenu

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

# Your own entries. Put them into a file local.cds, in the folder boot\scripts of your additional files. For example:
#
#   Entry My kernel
#     Key K
#     Help Starts a system of my own.
#     Linux mine/vmlinuz
#     Options "root=/dev/ram0 quiet"
#     Initrd mine/initrd.gz
#   EndEntry
#
# It is the last part of this menu, so that a mistake in it cannot hide the entries above. It may also set the title,
# the time-out and the default anew. What stands between IfFile and EndIf counts only if this file is on the CD.
IfFile boot/scripts/local.cds
  Include boot/scripts/local.cds
EndIf
