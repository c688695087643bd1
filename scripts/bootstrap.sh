#!/bin/sh
# Installs the Debian 12 packages that building and testing need. Does nothing if all of them are installed.
#   scripts/bootstrap.sh build    for building the program itself (default)
#   scripts/bootstrap.sh windows  also the compilers of the Windows programs
#   scripts/bootstrap.sh test     also the readers that the tests compare against, and the emulator
#   scripts/bootstrap.sh rescue   the programs on the CD of make rescue
#   scripts/bootstrap.sh boot     the emulator of make boot, with a window if there is a display
#   scripts/bootstrap.sh wine32   for making a Wine for 32-bit programs (scripts/wine32.sh)
#   scripts/bootstrap.sh wine64   the Wine for 64-bit programs
#   scripts/bootstrap.sh fuzz     also the compiler of the fuzz targets
#   scripts/bootstrap.sh lint     also the checkers
#   scripts/bootstrap.sh bench    also the programs whose speed is compared
#   scripts/bootstrap.sh faults   also the tool that makes system calls fail, and a reader of images
#   scripts/bootstrap.sh mutants  also the tools of scripts/mutants.sh
set -eu

packages="g++ make cmake ninja-build nasm libssl-dev libxxhash-dev qt6-base-dev librsvg2-bin g++-multilib syslinux-common memtest86+ grub-rescue-pc ipxe python3"
cross="g++-mingw-w64-i686-win32 g++-mingw-w64-x86-64-win32"
rescue="memtest86+ ipxe grub-rescue-pc debian-installer-12-netboot-i386"
case "${1:-build}" in
  build) ;;
  windows) packages="$packages $cross" ;;
  test) packages="$packages $cross $rescue bochs bochs-term bochsbios vgabios lld libgtest-dev libgmock-dev googletest qemu-system-x86 mtools dosfstools genisoimage xorriso libarchive-tools p7zip-full fdisk strace universal-ctags appstream desktop-file-utils xvfb xdotool" ;;
  rescue) packages="$rescue" ;;
  boot) packages="qemu-system-x86 ${DISPLAY:+qemu-system-gui} ${WAYLAND_DISPLAY:+qemu-system-gui}" ;;
  wine32) packages="mmdebstrap util-linux" ;;
  wine64) packages="wine wine64" ;;
  fuzz) packages="$packages clang libclang-rt-14-dev mtools dosfstools" ;;
  lint) packages="$packages $cross libgtest-dev libgmock-dev googletest clang-format clang-tidy shellcheck universal-ctags" ;;
  bench) packages="$packages $rescue genisoimage xorriso isolinux grub-common grub-pc-bin mtools qemu-system-x86 jdupes rdfind xvfb xdotool" ;;
  faults) packages="$packages strace libarchive-tools" ;;
  mutants) packages="$packages lld libgtest-dev libgmock-dev googletest python3-clang-14 libclang-14-dev" ;;
  *) echo "bootstrap.sh: unknown set '$1' (build, windows, test, rescue, boot, wine32, wine64, fuzz, lint, bench, faults or mutants)" >&2; exit 2 ;;
esac

missing=""
for package in $packages; do
  dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "bootstrap.sh: not root and no sudo; install by hand:$missing" >&2; exit 1; }
  as_root=sudo
fi
echo "Installing:$missing"
$as_root apt-get update -q
# shellcheck disable=SC2086  # each word must become one argument, because each is a package
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
