#!/bin/bash
# The program's port code against the real kernel drivers: boots a guest machine with a printer port and serial
# ports that lead nowhere, runs bench scripts in it through the parallel-port device, the terminal device and raw
# I/O, and compares the host's record of every register access with the bench's wire logs.
#
#   scripts/ports-in-guest.sh BUILD      BUILD: the folder with the built programs
#
# Leaves in BUILD/guest: record.txt, words.txt (what the guest said) and the bench's wire logs.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
build=$1
guest=$build/guest
export LC_ALL=C.UTF-8
mkdir -p "$guest"

# The kernel's package is taken apart, never installed.
fetch_kernel() {
  local package
  [ -e "$guest/kernel/vmlinuz" ] && return
  package=$(apt-cache depends linux-image-amd64 | sed -n 's/.*Depends: \(linux-image-[0-9].*\)/\1/p' | head -n 1)
  [ -n "$package" ] || { echo "apt knows no kernel package; run apt-get update" >&2; return 1; }
  (cd "$guest" && apt-get download -q "$package" 2>/dev/null)
  rm -rf "$guest/kernel"
  mkdir -p "$guest/kernel"
  dpkg-deb --fsys-tarfile "$guest/$package"_*.deb |
    tar -x -C "$guest/kernel" --wildcards './boot/vmlinuz*' '*/drivers/parport/parport*.ko' '*/char/ppdev.ko' '*/char/lp.ko'
  mv "$guest"/kernel/boot/vmlinuz* "$guest/kernel/vmlinuz"
  rm -f "$guest/$package"_*.deb
}

# settings FOLDER PORT INVERT INVERT_COM
settings() {
  mkdir -p "$1"
  printf '%s\r\n' "$2" >"$1/port.ini"
  printf '%s\r\n' "$3" >"$1/invert.ini"
  printf '%s\r\n' "$4" >"$1/invert_com.ini"
  printf '4,8,1,2,1\r\n' >"$1/LPT_Kiosztas.ini"
  printf '1,0\r\n' >"$1/speed.ini"
}

all_settings() {
  settings "$1/lpt" '&H378,LPT' 0 0
  settings "$1/lpt-inverted" '&H378,LPT' 31 0
  settings "$1/com2" '&H2F8,COM' 0 0
  settings "$1/com2-inverted" '&H2F8,COM' 0 15
  settings "$1/com3" '&H3E8,COM' 0 0
  settings "$1/com3-inverted" '&H3E8,COM' 0 15
}

make_root() {
  local root=$guest/root
  rm -rf "$root"
  mkdir -p "$root"/{bin,proc,sys,dev,modules}
  cp "$(command -v busybox)" "$root/bin/"
  cp "$build/bin/port_probe" "$root/bin/"
  # The loader and the libraries stand where the program looks for them.
  ldd "$build/bin/port_probe" | grep -o '/[^ ]*' | xargs -I{} cp --parents -L {} "$root"
  find "$guest/kernel" -name '*.ko' -exec cp {} "$root/modules/" \;
  cp tests/guest/*.script "$root/"
  install -m 755 tests/guest/init "$root/init"
  all_settings "$root"
  (cd "$root" && find . | cpio --quiet -o -H newc -R 0:0 | gzip -1) >"$guest/root.gz"
}

# at_bench FOLDER BOARD SCRIPT
at_bench() {
  { echo "board $2"; echo "socket none"; cat "tests/guest/$3.script"; } |
    "$build/bin/zelvo-bench" --folder "$guest/bench/$1" --wire "$guest/bench/$1.wire" >"$guest/bench/$1.txt"
}

at_the_bench() {
  rm -rf "$guest/bench"
  all_settings "$guest/bench"
  at_bench lpt "lpt base=378" lpt
  at_bench lpt-inverted "lpt base=378 inverted=vdd,vpp,clock,data,input" lpt
  at_bench com2 "com base=2F8" com
  at_bench com2-inverted "com base=2F8 inverted=pgd,pgc,input,vpp" com
  at_bench com3 "com base=3E8" com
  at_bench com3-inverted "com base=3E8 inverted=pgd,pgc,input,vpp" com
}

# No console: the traffic of a serial console would stand in the record without telling which port it is.
boot() {
  rm -f "$guest/record.txt" "$guest/words.txt"
  timeout 110 qemu-system-x86_64 -accel tcg -m 256 -nodefaults -display none -no-reboot \
    -kernel "$guest/kernel/vmlinuz" -initrd "$guest/root.gz" -append "quiet panic=-1 pnpacpi=off 8250.nr_uarts=2" \
    -parallel null -serial null -serial null -chardev null,id=third -device isa-serial,iobase=0x3e8,irq=5,chardev=third \
    -debugcon "file:$guest/words.txt" \
    -trace parallel_ioport_write -trace parallel_ioport_read -trace serial_write -trace serial_read -D "$guest/record.txt"
}

fetch_kernel
make_root
at_the_bench
boot
"$build/bin/port_judge" "$guest/record.txt" "$guest/words.txt" "$guest/bench"
