#!/bin/sh
# Builds the fuzz targets with clang and the sanitizers and runs each of them. Stops at the first failure.
#   scripts/fuzz.sh [SECONDS]   time for each target (default 60)
set -eu
seconds=${1:-60}
cd "$(dirname "$0")/.."
scripts/bootstrap.sh fuzz

build=build/fuzz
cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
  -DDISCWRIGHT_TESTS=OFF -DDISCWRIGHT_FUZZ=ON -DDISCWRIGHT_SANITIZE=ON --log-level=WARNING
cmake --build $build --target mkisofs fuzz_iso_reader fuzz_mkisofs_options fuzz_loader_script fuzz_loader_iso \
  fuzz_loader_fat

# The seeds are two images of CDs, whole and in part, a small floppy, a command line, and shipped scripts of the boot
# menu with some keys. The fuzzer adds the inputs that it finds, and the next run starts from them.
seeds=$build/seeds
mkdir -p $seeds/tree/boot/deeper $seeds/iso_reader $seeds/mkisofs_options $seeds/loader_script $seeds/loader_iso \
  $seeds/loader_fat
echo loader >$seeds/tree/boot/loader.bin
echo text >"$seeds/tree/boot/deeper/a file"
: >$seeds/tree/empty
mkisofs=$build/program/mkisofs
$mkisofs -o $seeds/iso_reader/plain.iso $seeds/tree 2>/dev/null
$mkisofs -no-emul-boot -b boot/loader.bin -hide boot.catalog -o $seeds/iso_reader/boot.iso $seeds/tree 2>/dev/null
printf '%s\0' -volid X -preparer Y -publisher Z -appid W -iso-level 4 -omit-period -no-emul-boot -boot-load-size 4 \
  -eltorito-boot boot/loader.bin -hide '*.[a-c]?' -c c -follow-links -cache-inodes -output o tree \
  >$seeds/mkisofs_options/script
{
  cat files/vexacd/boot/scripts/main.cds
  printf '\0Menu M\nEntry E\nKey E\nPrint x\nWait 1\nRestart\nEndEntry\nEndMenu\nSet Default=E\n'
  printf '\0\004 \004a\011 \001m\011 \111 \011 '
} >$seeds/loader_script/menu
{
  printf 'Set PasswordRequest=1\nSet PasswordString="pw"\nInclude b\nSet Timeout=1\n\0Entry A\nRestart\nEndEntry\n'
  printf '\0\001p\001w\011 \011 '
} >$seeds/loader_script/password
{
  cat files/disks/linkwellplus288/main.cds
  printf '\0\0\011 \001m\011 '
} >$seeds/loader_script/disk

# The loader's reader gets what follows the 16 sectors that every image begins with, and no padding.
for image in plain boot; do
  tail -c +32769 $seeds/iso_reader/$image.iso | head -c 61440 >$seeds/loader_iso/$image
done

floppy=$seeds/loader_fat/floppy
rm -f $floppy
mkfs.fat -C $floppy -F 12 -r 32 -f 1 64 >$build/seeds.log
mmd -i $floppy ::BOOT ::A ::A/B
mcopy -i $floppy files/vexacd/boot/scripts/main.cds ::LOADER.BIN
mcopy -i $floppy LICENSE ::BOOT/A
mcopy -i $floppy LICENSE ::A/B/A.B

for target in iso_reader mkisofs_options loader_script loader_iso loader_fat; do
  echo "== $target"
  $build/tests/fuzz/fuzz_$target -max_total_time="$seconds" -max_len=400000 -timeout=10 -print_final_stats=1 \
    -artifact_prefix=$build/ $seeds/$target >$build/$target.log 2>&1 || {
    tail -n 60 $build/$target.log
    exit 1
  }
  grep stat:: $build/$target.log
done
