#!/bin/sh
# Packs the program folder of a build as a tarball with one folder, discwright-VERSION. The same programs and files
# always give the same tarball: its times are SOURCE_DATE_EPOCH, or the time of the last commit.
#   scripts/package.sh BUILD TARBALL.tar.gz
set -eu

build=$1
tarball=$2
sources=$(dirname "$0")/..
version=$(sed -n 's/^project.Discwright VERSION \([^ ]*\) .*/\1/p' "$sources/CMakeLists.txt")
time=${SOURCE_DATE_EPOCH:-$(git -C "$sources" log -1 --format=%ct)}

stage=$(mktemp -d)
trap 'rm -rf "$stage" "$tarball.new"' EXIT
DESTDIR='' cmake --install "$build" --component program --prefix "$stage" >/dev/null
mv "$stage/lib/discwright" "$stage/discwright-$version"
tar --create --directory "$stage" --sort=name --format=gnu --mtime="@$time" --owner=0 --group=0 --numeric-owner \
  --mode=u=rwX,go=rX "discwright-$version" >"$stage/tar"
gzip -9 --no-name <"$stage/tar" >"$tarball.new"
mv "$tarball.new" "$tarball"
echo "$tarball"
