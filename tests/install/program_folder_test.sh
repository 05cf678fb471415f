#!/usr/bin/env bash
# What an installation lays into the program folder, and what it leaves alone there.
#   program_folder_test.sh BUILD_FOLDER MAKE_SCHEDULE
set -euo pipefail
build=$(realpath "$1") make_schedule=$(realpath "$2")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
folder="$scratch/my \$5 or 5% planner"  # blanks, and what shells and entries take as their own

fail() { echo "FAILED: $*" >&2; exit 1; }
install_program() { cmake "$@" -DCMAKE_INSTALL_PREFIX="$folder" -P "$build/cmake_install.cmake" >/dev/null; }

lays_a_whole_program_folder() {
  install_program
  for file in KTZ0.SKN KTZ1.SKN KTZ2.SKN SY.mdb share/icons/hicolor/{16x16,512x512}/apps/vellora.png; do
    [[ -s $folder/$file ]] || fail "$file is missing"
  done
}

is_hardened_against_broken_files() {
  local program
  for program in "$folder/vellora" "$build/src/app/vellora"; do
    readelf -dW "$program" | grep BIND_NOW >/dev/null || fail "$program can be rewritten by what it loads"
    ! readelf -dW "$program" | grep -E '(RPATH|RUNPATH).*(\[:|::|:\])' ||
      fail "$program looks for libraries where it is started"
  done
  grep -q '^CMAKE_BUILD_TYPE:[A-Z]*=Release' "$build/CMakeCache.txt" || return 0
  readelf -sW "$folder/vellora" | grep __stack_chk_fail >/dev/null || fail "no stack protector"
}

joins_the_desktops_menu() {
  local data="$scratch/data"
  local entry="$data/applications/org.vellora.Vellora.desktop"
  XDG_DATA_HOME="$data" "$folder/add_to_menu.sh"
  grep -qF "Exec=\"$scratch/my \\\\\$5 or 5%% planner/vellora\"" "$entry" ||
    fail "the desktop entry does not start $folder/vellora: $(grep Exec "$entry")"
  [[ -s $data/icons/hicolor/scalable/apps/vellora.svg ]] || fail "the icon is missing"
  desktop-file-validate "$entry" "$folder/share/applications/"*.desktop
  appstreamcli validate --no-net "$folder/share/metainfo/"*.xml
}

renews_only_the_program() {
  local file mine=(SY.mdb KTZ0.SKN own.skn JH.ZRT 日程表备份.KTZ)
  for file in "${mine[@]}" vellora; do echo mine >"$folder/$file"; done
  install_program
  install_program -DVELLORA_SCHEDULE=demo
  for file in "${mine[@]}"; do [[ $(<"$folder/$file") == mine ]] || fail "$file was changed"; done
  [[ -x $folder/vellora && $(head -c 4 "$folder/vellora") == $'\x7fELF' ]] || fail "the old program is still there"
}

mends_a_broken_off_installation() {
  rm "$folder/SY.mdb"
  echo half >"$folder/SY.mdb.new"
  install_program
  [[ $(head -c 6 "$folder/SY.mdb") == SQLite && ! -e $folder/SY.mdb.new ]] || fail "no whole schedule was laid"
}

makes_no_schedule_that_makes_no_sense() {
  local words wanted status
  echo mine >"$scratch/SY.mdb"
  while read -r wanted words; do
    status=0
    # shellcheck disable=SC2086  # the words of one call
    (cd "$scratch" && "$make_schedule" $words 2>said) || status=$?
    [[ $status == "$wanted" && -s $scratch/said ]] || fail "make_schedule $words ended with $status"
  done <<<$'1 starter SY.mdb\n1 demo SY.mdb\n1 starter none/SY.mdb\n2\n2 starter\n2 years f 0 50\n2 years f 1 x\n2 other f'
  [[ $(<"$scratch/SY.mdb") == mine && ! -e $scratch/f ]] || fail "a schedule was made"
}

lays_a_whole_program_folder
is_hardened_against_broken_files
joins_the_desktops_menu
renews_only_the_program
mends_a_broken_off_installation
makes_no_schedule_that_makes_no_sense
