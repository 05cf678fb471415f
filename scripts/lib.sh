# Shared by ./run, ./test and ./bench: packages of Debian 12, and the build.
# shellcheck shell=bash disable=SC2034  # the lists are used by those who source this

build_packages=(
  build-essential cmake ninja-build ccache
  qt6-base-dev qt6-svg-dev qt6-translations-l10n libsqlitecpp-dev libsqlite3-dev libical-dev
)
font_packages=(fonts-noto-cjk fonts-arphic-gkai00mp)
check_packages=(clang-format clang-tidy)
test_packages=(
  libgtest-dev appstream desktop-file-utils poppler-utils tidy python3-xlrd python3-icalendar
)
long_packages=(clang libclang-rt-dev libreoffice-calc-nogui)
bench_packages=(libgtest-dev libbenchmark-dev python3-xlwt python3-uno libreoffice-calc-nogui)
portable_packages=(fonts-wqy-microhei fcitx5-frontend-qt6)
picture_packages=(xvfb xdotool imagemagick)

as_root() {
  if [[ $(id -u) == 0 ]]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Packages are missing, and there is no sudo: run this once as root." >&2
    return 1
  fi
}

apt_install() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@"
}

# Installs those of the packages that are not there; quick and offline when all are.
need_packages() {
  local package missing=()
  for package in "$@"; do
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  ((${#missing[@]} == 0)) && return
  echo "Installing: ${missing[*]}"
  apt_install "${missing[@]}" || { as_root apt-get update -q && apt_install "${missing[@]}"; }
}

# Configures and builds a preset of CMakePresets.json.
build_preset() {
  cmake --preset "$1"
  cmake --build --preset "$1"
}
