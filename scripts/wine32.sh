#!/bin/sh
# Makes the Wine for 32-bit Windows programs from Debian's packages for i386 in build/wine32 (some 700 MB), and runs it.
#   scripts/wine32.sh make             makes it if it is missing; if that fails, ends with 1 and build/wine32.reason
#   scripts/wine32.sh run COMMAND...   runs a command of this system, such as a test, that starts Windows programs
# "run" gives the command its own mount namespace and the environment variable WINE32_GUEST. The variable names the
# folder that wine.sh makes the root directory of a 32-bit program. All mounts are made in that namespace and disappear
# with its last process. No mount is ever visible outside, so build/ can be deleted at any time.
set -eu
started_in=$PWD
cd "$(dirname "$0")/.."
root=$PWD/build/wine32
used_root=${WINE32_ROOT:-$root}
guest=$PWD/build/wine32.guest
reason=$PWD/build/wine32.reason

give_up() {
  echo "$1" >"$reason"
  echo "wine32.sh: $1" >&2
  exit 1
}

# Prints the address of Debian's own archive as this machine reaches it, from the list of its package sources.
archive() {
  # shellcheck disable=SC2016  # the names after "$" belong to apt, not to the shell
  apt-get indextargets --format '$(ORIGIN) $(CODENAME) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
    sed -n 's/^Debian bookworm main //p' | head -n 1
}

in_namespace() {
  if [ "$(id -u)" -eq 0 ]; then unshare --mount "$@"; else unshare --map-root-user --mount "$@"; fi
}

# Unpacks the packages without running their own scripts, so that neither root nor another system is needed. The script
# of libwine would put the zlib of the Windows compiler among Wine's libraries, marked as one of them; this function
# does the same. Of the packages' files only usr is kept, with the content of lib in it.
unpack() {
  mmdebstrap --arch=i386 --variant=extract --include=wine32,libwine,libc-bin --format=tar bookworm - "deb $1 bookworm main" |
    tar -x -C "$root.new" --no-same-owner --exclude='./dev/*' --exclude='./usr/share/doc' --exclude='./usr/share/locale' \
      --exclude='./usr/share/man'
  cp -a "$root.new/lib/." "$root.new/usr/lib"
  find "$root.new" -mindepth 1 -maxdepth 1 ! -name usr -exec rm -rf {} +
  zlib=$root.new/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll
  cp "$root.new/usr/i686-w64-mingw32/lib/zlib1.dll" "$zlib"
  printf 'Wine builtin DLL\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0' | dd of="$zlib" bs=1 seek=64 conv=notrunc status=none
}

# Makes build/wine32. The folder is made under another name and renamed at the end, so that it is either complete or
# missing.
make_root() {
  [ ! -d "$root" ] || return 0
  mkdir -p build
  exec 9>"$root.lock"
  flock 9
  [ ! -d "$root" ] || return 0
  rm -rf "$root.new" "$reason"
  in_namespace true 2>/dev/null || give_up "this machine lets us make no mount namespace"
  scripts/bootstrap.sh wine32 9>&- || give_up "mmdebstrap could not be installed"
  source=$(archive)
  [ -n "$source" ] || give_up "no package source of Debian 12 is set up here"
  mkdir "$root.new"
  echo "Making the 32-bit Wine from $source"
  unpack "$source" >"$root.log" 2>&1 9>&- || { tail -n 20 "$root.log" >&2; give_up "Debian's i386 packages could not be had"; }
  # shellcheck disable=SC2016  # only the inner shell knows the variable
  WINE32_ROOT="$root.new" scripts/wine32.sh run sh -c 'chroot "$WINE32_GUEST" /usr/lib/wine/wine --version' \
    9>&- >>"$root.log" 2>&1 || {
    tail -n 20 "$root.log" >&2
    give_up "the 32-bit Wine does not start here"
  }
  mv "$root.new" "$root"
}

# Makes the root directory for the 32-bit programs: that of this system, with the i386 packages laid over usr. The
# mounts of both are shared, so that what a test mounts is seen in both.
mount_guest() {
  mount --make-rprivate /
  mount --make-rshared /
  mkdir -p "$guest"
  mount -t tmpfs wine32 "$guest"
  mount --make-unbindable "$guest"
  for folder in /*; do
    case $folder in
      /usr | /sys) ;;
      *)
        if [ -L "$folder" ]; then
          cp -P "$folder" "$guest"
        elif [ -d "$folder" ]; then
          mkdir "$guest$folder"
          mount --rbind "$folder" "$guest$folder"
        fi
        ;;
    esac
  done
  mkdir "$guest/usr"
  # The path is relative, because a colon in it would end the name.
  (cd "$(dirname "$used_root")" && mount -t overlay -o "lowerdir=$(basename "$used_root")/usr:/usr" wine32 "$guest/usr")
  case $PWD in /usr/*) mount --rbind "$PWD" "$guest$PWD" ;; esac
}

command=${1:-}
[ $# -eq 0 ] || shift
case $command in
  make) make_root ;;
  run)
    script=$PWD/scripts/wine32.sh
    cd "$started_in"
    # One namespace is enough. Without a 32-bit Wine the command runs anyway, and reports itself what it cannot do.
    if [ -n "${WINE32_GUEST:-}" ] || [ ! -d "$used_root" ]; then exec "$@"; fi
    in_namespace "$script" guest "$@"
    ;;
  guest)
    mount_guest
    export WINE32_GUEST="$guest"
    cd "$started_in"
    exec "$@"
    ;;
  *) sed -n '2,4p' "$0" >&2; exit 2 ;;
esac
