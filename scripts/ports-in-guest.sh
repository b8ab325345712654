#!/bin/bash
# The program's port code against the real kernel drivers: boots a guest machine with printer ports, serial ports
# and a USB serial adapter that lead nowhere, runs bench scripts in it through the parallel-port device, the terminal
# device and raw I/O, and compares the host's record of every register access with the bench's wire logs.
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

# In the order of loading; the last six for a USB adapter.
modules="parport/parport parport/parport_pc char/ppdev char/lp
  usb/common/usb-common usb/core/usbcore usb/host/xhci-hcd usb/host/xhci-pci usb/serial/usbserial usb/serial/ftdi_sio"

no_kernel() {
  echo "The guest's kernel could not be fetched: $1. This needs Debian's package lists (apt-get update) and the network." >&2
  return 1
}

# The kernel's package is taken apart, never installed.
fetch_kernel() {
  local package scratch
  [ "$(cat "$guest/kernel/modules" 2>/dev/null)" = "$modules" ] && return
  package=$(apt-cache depends linux-image-amd64 2>/dev/null | sed -n 's/.*Depends: \(linux-image-[0-9].*\)/\1/p' | head -n 1) || true
  [ -n "$package" ] || no_kernel "apt knows no package linux-image-amd64"
  # Where apt's own user may write as well, else it complains as root.
  scratch=$(mktemp -d)
  trap "rm -rf '$scratch'" EXIT
  chmod 755 "$scratch"
  [ "$(id -u)" != 0 ] || chown _apt "$scratch"
  if ! (cd "$scratch" && apt-get download -q "$package" >download.log 2>&1); then
    cat "$scratch/download.log" >&2
    no_kernel "apt-get download $package failed"
  fi
  rm -rf "$guest/kernel"
  mkdir -p "$guest/kernel"
  # shellcheck disable=SC2046,SC2086
  dpkg-deb --fsys-tarfile "$scratch/$package"_*.deb |
    tar -x -C "$guest/kernel" --wildcards './boot/vmlinuz*' $(printf '*/drivers/%s.ko\n' $modules)
  mv "$guest"/kernel/boot/vmlinuz* "$guest/kernel/vmlinuz"
  echo "$modules" >"$guest/kernel/modules"
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
  settings "$1/lpt-3bc" '&H3BC,LPT' 0 0
  settings "$1/lpt-none" '&H278,LPT' 0 0
  settings "$1/com4" '&H2E8,COM' 0 0
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
  at_bench com4 "com base=2E8" com
}

# No console: the traffic of a serial console would stand in the record without telling which port it is.
boot() {
  rm -f "$guest/record.txt" "$guest/words.txt"
  timeout 110 qemu-system-x86_64 -accel tcg -m 256 -nodefaults -display none -no-reboot \
    -kernel "$guest/kernel/vmlinuz" -initrd "$guest/root.gz" -append "quiet panic=-1 pnpacpi=off 8250.nr_uarts=2" \
    -parallel null -chardev null,id=other -device isa-parallel,iobase=0x3bc,irq=6,chardev=other \
    -serial null -serial null -chardev null,id=third -device isa-serial,iobase=0x3e8,irq=5,chardev=third \
    -device qemu-xhci -chardev null,id=usb -device usb-serial,always-plugged=on,chardev=usb \
    -debugcon "file:$guest/words.txt" \
    -trace parallel_ioport_write -trace parallel_ioport_read -trace serial_write -trace serial_read \
    -trace usb_serial_handle_control -D "$guest/record.txt" ||
    echo "The guest machine came to no good end (exit $?; 124: it took too long)." >&2
}

fetch_kernel
make_root
at_the_bench
boot
"$build/bin/port_judge" "$guest/record.txt" "$guest/words.txt" "$guest/bench"
