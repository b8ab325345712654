#!/bin/sh
# Installs what packages.txt lists and this machine lacks. Asks nothing; silent when nothing is missing.
#
#   scripts/install-packages.sh [GROUP]     also the lines that begin with @GROUP
set -eu
list=$(dirname "$0")/../packages.txt

if ! command -v dpkg-query >/dev/null; then
  echo "This is no Debian machine: install what packages.txt lists by hand, then run cmake --preset release." >&2
  exit 1
fi

missing=
for package in $(sed "s/#.*//; ${1:+s/^@$1 //;} /^@/d" "$list"); do
  state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
  case $state in
    installed*) ;;
    *) missing="$missing $package" ;;
  esac
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" = 0 ]; then
  as_root=
elif command -v sudo >/dev/null; then
  as_root="sudo${CI:+ -n}"  # nobody answers a password prompt in CI
else
  echo "These packages are missing:$missing" >&2
  echo "Install them as root (apt-get install$missing), or run this as root or with sudo at hand." >&2
  exit 1
fi

echo "Installing packages:$missing"
log=$(mktemp)
trap 'rm -f "$log"' EXIT

# Variables are handed over by env, since sudo drops them. The lists of packages are renewed only when the
# installation fails with those at hand.
install_missing() {
  # shellcheck disable=SC2086
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
    -o DPkg::Lock::Timeout=300 $missing >"$log" 2>&1 </dev/null
}
if ! install_missing; then
  $as_root apt-get update -q -o DPkg::Lock::Timeout=300 </dev/null ||
    echo "apt-get update did not succeed everywhere; trying with the lists that came." >&2
  if ! install_missing; then
    cat "$log" >&2
    echo "The packages could not be installed:$missing" >&2
    exit 1
  fi
fi
