#!/usr/bin/env bash
# Installs the packages of packaging/packages.txt that are missing; silent when none is.
set -euo pipefail

list="$(cd "$(dirname "$0")/.." && pwd)/packaging/packages.txt"
mapfile -t wanted < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$list")

stop() {
  printf 'set-up: %s\n' "$@" >&2
  exit 1
}

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
  for program in g++ cmake ninja; do
    command -v "$program" >/dev/null ||
      stop "$program is missing, and there is no apt-get here to install it." \
        "Install what these Debian packages hold, then start again: ${wanted[*]}"
  done
  exit 0 # another system: cmake names any library that is missing
fi

present=$(dpkg-query -W -f '${db:Status-Status} ${binary:Package}\n' 2>/dev/null |
  sed -n -e 's/:[^:]*$//' -e 's/^installed //p')
mapfile -t missing < <(printf '%s\n' "${wanted[@]}" | grep -vxF -f <(printf '%s\n' "$present") || true)
[ "${#missing[@]}" -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null ||
    stop "these packages are missing: ${missing[*]}" \
      "Installing them needs root, and sudo is not here. As root, run:" \
      "  apt-get install --no-install-recommends ${missing[*]}"
  as_root=(sudo)
fi

apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" </dev/null
}

echo "set-up: installing ${missing[*]}"
apt update || echo "set-up: the package lists could not be updated; trying with those at hand" >&2
apt install --yes --no-install-recommends "${missing[@]}" ||
  stop "apt-get could not install: ${missing[*]}" "Its messages above say why."
