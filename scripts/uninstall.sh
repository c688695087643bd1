#!/bin/sh
# Removes what `make install` has installed. The folders in the homes of the users stay.
#   scripts/uninstall.sh PREFIX
set -eu

prefix=$1
if [ ! -e "$prefix/lib/discwright/installed.list" ]; then
  echo "uninstall.sh: Discwright is not installed in $prefix: give the PREFIX and DESTDIR of 'make install'" >&2
  exit 1
fi
for command in discwright discwright-build; do rm -f "$prefix/bin/$command"; done
rm -rf "$prefix/lib/discwright" "$prefix/share/doc/discwright"
rm -f "$prefix/share/applications/org.example.discwright.desktop" \
  "$prefix/share/metainfo/org.example.discwright.metainfo.xml" \
  "$prefix"/share/icons/hicolor/*/apps/org.example.discwright.*
