#!/bin/sh
# Collects the additional files of the rescue CD: the programs, their licences, and the script with their menu entries.
#   examples/rescue/collect.sh FOLDER   FOLDER is made if it does not exist; files of the same names are replaced
# The programs come from Debian packages (scripts/bootstrap.sh rescue). Nothing but FOLDER is changed.
set -eu

recipe=$(dirname "$0")
folder=${1:?"collect.sh: name the folder for the files"}
packages="memtest86+ ipxe grub-rescue-pc debian-installer-12-netboot-i386"
installer=/usr/lib/debian-installer/images/12/i386/text/debian-installer/i386
licences="$folder/rescue/licences"

# take FILE NAME: copies a file of a package.
take() {
  if [ ! -f "$1" ]; then
    echo "collect.sh: $1 is missing: install the packages $packages (scripts/bootstrap.sh rescue does it)." >&2
    exit 1
  fi
  mkdir -p "$(dirname "$folder/$2")"
  install -m 644 "$1" "$folder/$2"
}

take "$recipe/local.cds" boot/scripts/local.cds
take /boot/memtest86+x64.bin rescue/memtest64.bin
take /boot/memtest86+ia32.bin rescue/memtest32.bin
take /boot/ipxe.lkrn rescue/ipxe.krn
take /usr/lib/grub-rescue/grub-rescue-floppy.img rescue/grub.img
truncate -s 1474560 "$folder/rescue/grub.img" # the size of a floppy disk; the image of the package ends earlier
take $installer/linux rescue/debian/linux
take $installer/initrd.gz rescue/debian/initrd.gz

# The licence of each program, the general licences that these name, and where the sources are.
sources="$licences/sources.txt"
for package in $packages; do
  take "/usr/share/doc/$package/copyright" "rescue/licences/$package.txt"
done
cat "$licences"/*.txt | grep -o '/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' | sort -u |
  while read -r licence; do take "$licence" "rescue/licences/${licence##*/}.txt"; done
{
  echo "The programs in this folder are those of these Debian packages, without any change but the length of grub.img."
  echo "Each source is at https://snapshot.debian.org/package/SOURCE/VERSION/ and on Debian's servers: apt-get source."
  for package in $packages; do
    # shellcheck disable=SC2016  # the names in braces are those of dpkg-query
    dpkg-query -W -f '\nPackage ${Package} ${Version}: source ${source:Package}, version ${source:Version}\n' "$package"
    # shellcheck disable=SC2016
    dpkg-query -W -f '${Built-Using}\n' "$package" | sed 's/, /\n/g; /^$/d' | sed 's/^/  made with the source /'
  done
} | sed 's/$/\r/' > "$sources"
