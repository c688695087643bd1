# Menu entries of the rescue CD.
#
# The boot menu includes this file behind its own entries, because it is boot\scripts\local.cds in the additional files.
# The topic "Entries of your own in the boot menu" of the help explains the words. Paths begin at the root of the CD. An
# entry whose file is not on the CD does not appear, so you can leave a program out by leaving its files out.

Set Title=Rescue CD

# "Linux" starts the kernel of a Linux system, and every program that is made to be started like one.
# The kernel of Debian gets its initial RAM disk with "Initrd", and its command line with "Options":
#   rescue/enable=true  the installer's rescue mode, which installs nothing
#   vga=normal, fb=false and nomodeset keep the screen in text mode
#   what stands before the three dashes is for this start only
Entry Debian rescue system
  Key D
  Help Starts Linux and repairs an installed system from a shell. Needs 512 MB of memory. Loading takes a while.
  Linux rescue/debian/linux
  Initrd rescue/debian/initrd.gz
  Options "rescue/enable=true vga=normal fb=false nomodeset ---"
EndEntry

Entry Debian rescue system on the first serial port
  Key X
  Help The same with its dialogs on COM1 at 115,200 baud, for a computer without a screen.
  Linux rescue/debian/linux
  Initrd rescue/debian/initrd.gz
  Options "rescue/enable=true vga=normal fb=false nomodeset console=ttyS0,115200n8 ---"
EndEntry

# Memtest86+ comes in two builds. With "IfProcessor", an entry appears only if the processor has 64 bits, or only 32.
Entry Memory test
  IfProcessor 64
  Key M
  Help Tests the memory until Esc is pressed. This is the build for 64-bit processors.
  Linux rescue/memtest64.bin
EndEntry

Entry Memory test
  IfProcessor 32
  Key M
  Help Tests the memory until Esc is pressed. This is the build for 32-bit processors.
  Linux rescue/memtest32.bin
EndEntry

Entry iPXE
  Key I
  Help Starts a system from the network: by what the network offers, or with Ctrl+B from its command line.
  Linux rescue/ipxe.krn
EndEntry

# "Floppy" starts the image of a floppy disk from memory.
Entry GRUB
  Key G
  Help Starts an installed system whose own boot loader is damaged, from the command line of GRUB.
  Floppy rescue/grub.img
EndEntry
