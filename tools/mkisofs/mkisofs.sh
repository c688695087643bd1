#!/bin/sh
# mkisofs of the program folder: masters through Debian's genisoimage. The image appears under its name only when it
# is whole; until then it stands beside it as NAME.NUMBER.mkisofs.part.

out=
part=
previous=
left=$#
while [ "$left" -gt 0 ]; do
  argument=$1
  shift
  left=$((left - 1))
  case $previous in
    -output | -o)
      out=$argument
      part=$out.$$.mkisofs.part
      argument=$part
      ;;
  esac
  previous=$argument
  set -- "$@" "$argument"
done

# Called by the trap and at the end.
discard() {
  [ -z "$part" ] || rm -f -- "$part"
}
trap 'discard; exit 143' HUP INT TERM

if ! command -v genisoimage >/dev/null; then
  echo "mkisofs: genisoimage is not installed; install the package genisoimage" >&2
  exit 127
fi
# genisoimage cuts names of more than 207 bytes and leaves out files of 4 GiB or more; both are refused here. The tree is
# the last argument.
longer_than_207=$(printf '%208s*' '' | tr ' ' '?')
unfit=$(LC_ALL=C find -L "$previous" \( -name "$longer_than_207" -o -size +4294967294c \) -print 2>/dev/null | head -n 5)
if [ -n "$unfit" ]; then
  echo "mkisofs: these have a name of more than 207 bytes or a size of 4 GiB or more, which the image cannot hold:" >&2
  printf '%s\n' "$unfit" >&2
  exit 1
fi
# What a killed run has left there. Its genisoimage may still write: into a file of its own, which has no name any more.
[ -z "$out" ] || rm -f -- "$out".[0-9]*.mkisofs.part
# Names are bytes: no locale may change them.
LC_ALL=C genisoimage "$@"
status=$?
if [ "$status" -eq 0 ] && [ -n "$part" ]; then
  mv -f -- "$part" "$out"
  status=$?
fi
[ "$status" -eq 0 ] || discard
exit "$status"
