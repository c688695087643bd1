# The choice of a network card, for disks that were made with driver
# selection (the switch -sel of CreateDsk). main.cds includes this file.
#
# iPXE has its drivers built in and finds the one that fits each card. What
# can be chosen is the card. iPXE numbers the cards in the order in which it
# finds them, from 0 on: net0, net1, net2.

# Nothing starts until somebody has chosen.
Set Timeout=0
Print Choose the network card to start from, or N to try every card.

# "Options" are commands of iPXE. If one of them fails, the shell follows.
Entry First network card only
  Key A
  Help Starts from the network through the card that iPXE finds first.
  Linux boot/ipxe.krn
  Options "autoboot net0 || shell"
EndEntry

Entry Second network card only
  Key B
  Help Starts from the network through the card that iPXE finds second.
  Linux boot/ipxe.krn
  Options "autoboot net1 || shell"
EndEntry

Entry Third network card only
  Key C
  Help Starts from the network through the card that iPXE finds third.
  Linux boot/ipxe.krn
  Options "autoboot net2 || shell"
EndEntry

Entry List of the cards and their drivers
  Key L
  Help Shows each card with its driver. Then type, for example: autoboot net1
  Linux boot/ipxe.krn
  Options "ifstat ; shell"
EndEntry

Entry Command line of iPXE
  Key I
  Help Starts nothing. Type "help" for the commands, and "exit" at the end.
  Linux boot/ipxe.krn
  Options "shell"
EndEntry
