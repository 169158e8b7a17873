# SPDX-License-Identifier: MIT
# What the commands of the project share: saying what goes on, installing Debian packages that are missing, configuring
# and building a tree. Sourced by run, test and lint.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '\033[1m==> %s\033[0m\n' "$*"; }

# fail STEP HINT: ends the script and tells what to do.
fail() {
  printf '\n%s failed.\n%s\n' "$1" "$2" >&2
  exit 1
}

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# need_packages NAME...: installs those that are missing; asks for nothing when all are there.
need_packages() {
  local missing=()
  for name in "$@"; do
    [ "$(dpkg-query -W -f='${Status}' "$name" 2>/dev/null)" = 'install ok installed' ] || missing+=("$name")
  done
  [ ${#missing[@]} = 0 ] && return
  say "Installing ${missing[*]}"
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    fail "Installing packages" "Run as root once, or install them yourself: apt-get install ${missing[*]}"
  fi
  as_root apt-get update -qq || fail "Reading the package lists" "Is the network there? Then try again."
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
    fail "Installing packages" "Try it by hand to see why: apt-get install ${missing[*]}"
  # The tests start a server for Windows shares themselves, for themselves alone. The system's own isn't wanted.
  if [[ " ${missing[*]} " == *" samba "* ]] && command -v systemctl >/dev/null; then
    as_root systemctl disable --quiet --now smbd nmbd samba-ad-dc 2>/dev/null || true
  fi
}

build_packages=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-svg-dev qt6-multimedia-dev libgl1-mesa-dev
  libpugixml-dev libsmbclient-dev libchm-dev libqt6svg6 fonts-liberation
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good)
test_packages=(python3 libgtest-dev libgmock-dev libmuparser-dev libbenchmark-dev locales binutils samba)
bench_packages=(libbenchmark-dev libmuparser-dev)
lint_packages=(clang-format-14 clang-tidy-14)

# configure PRESET: makes the tree once. With PNL_GROUPED=ON it compiles sources in groups, which suits a tree that is built
# only once.
configure() {
  local preset=$1
  [ ! -f "build/$preset/build.ninja" ] || return 0
  say "Configuring build/$preset"
  cmake --preset "$preset" -DPNL_GROUPED="${PNL_GROUPED:-OFF}" >"build-$preset.log" 2>&1 || {
    cat "build-$preset.log"
    fail "Configuring build/$preset" "The log above names what is missing. rm -r build/$preset starts afresh."
  }
  mv "build-$preset.log" "build/$preset/configure.log"
}

# build PRESET [TARGET...]: configures the tree once, then builds what is left.
build() {
  local preset=$1
  shift
  # The compiler cache makes a second tree, and a second checkout, cheap.
  export CCACHE_SLOPPINESS=pch_defines,time_macros
  configure "$preset"
  say "Building build/$preset"
  cmake --build "build/$preset" ${1:+--target "$@"} ||
    fail "Building build/$preset" "The first error above is the one to look at. rm -r build/$preset starts afresh."
}
