#!/bin/sh
# Starts a CD image on a PC in an emulator (QEMU): in a window, or in the terminal when there is no display.
#   scripts/boot.sh IMAGE [ARGUMENT...]   further arguments go to QEMU
set -eu

image=${1:?"boot.sh: name the image of a CD"}
shift
if [ ! -r "$image" ]; then
  echo "boot.sh: $image cannot be read: make iso makes an image, and make boot IMAGE=FILE starts another one." >&2
  exit 1
fi
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  display="gtk"
  echo "To leave, close the window. Ctrl+Alt+G gives the mouse back."
elif [ -t 0 ] && [ -t 1 ]; then
  display="curses"
  printf 'To leave, press P in the menu; or press Alt+2, type quit and press Enter. Press Enter now to start. '
  read -r _
else
  echo "boot.sh: there is neither a display nor a terminal to show the screen on." >&2
  exit 1
fi
exec qemu-system-i386 -accel tcg -m 512 -nodefaults -vga std -display "$display" -monitor vc \
  -drive "if=ide,media=cdrom,format=raw,readonly=on,file=$(printf '%s' "$image" | sed 's/,/,,/g')" \
  -boot d -nic user,model=e1000 "$@"
