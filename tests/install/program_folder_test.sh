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

sums() { (cd "$folder" && sha256sum "$@"); }

lays_a_whole_program_folder() {
  install_program
  for file in vellora KTZ0.SKN KTZ1.SKN KTZ2.SKN SY.mdb add_to_menu.sh \
      share/icons/hicolor/{16x16,512x512}/apps/vellora.png; do
    [[ -s $folder/$file ]] || fail "$file is missing"
  done
  [[ -x $folder/vellora ]] || fail "vellora is not executable"
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
  local data="$scratch/data" entry
  XDG_DATA_HOME="$data" "$folder/add_to_menu.sh"
  entry="$data/applications/org.vellora.Vellora.desktop"
  grep -qF "Exec=\"$scratch/my \\\\\$5 or 5%% planner/vellora\"" "$entry" ||
    fail "the desktop entry does not start $folder/vellora: $(grep Exec "$entry")"
  [[ -s $data/icons/hicolor/scalable/apps/vellora.svg ]] || fail "the icon is missing"
  desktop-file-validate "$entry" "$folder/share/applications/"*.desktop
  appstreamcli validate --no-net "$folder/share/metainfo/"*.xml
}

never_touches_what_is_the_users() {
  local mine=(SY.mdb KTZ0.SKN own.skn JH.ZRT 日程表备份.KTZ)
  for file in "${mine[@]}"; do echo "mine" >"$folder/$file"; done
  sums "${mine[@]}" >"$scratch/before"
  install_program
  install_program -DVELLORA_SCHEDULE=demo
  diff "$scratch/before" <(sums "${mine[@]}") || fail "an installation changed the user's files"
}

renews_the_program_itself() {
  echo old >"$folder/vellora"
  install_program
  [[ $(head -c 4 "$folder/vellora") == $'\x7fELF' ]] || fail "the old program is still there"
}

mends_a_broken_off_installation() {
  rm "$folder/SY.mdb"
  echo half >"$folder/SY.mdb.new"
  install_program
  [[ $(head -c 6 "$folder/SY.mdb") == SQLite ]] || fail "no schedule was laid"
  [[ ! -e $folder/SY.mdb.new ]] || fail "the half schedule is still there"
}

makes_no_schedule_over_another() {
  echo mine >"$scratch/SY.mdb"
  for kind in "starter" "demo"; do
    ! "$make_schedule" "$kind" "$scratch/SY.mdb" 2>"$scratch/said" || fail "$kind did not refuse"
    [[ -s $scratch/said ]] || fail "$kind did not say why"
  done
  ! "$make_schedule" starter "$scratch/none/SY.mdb" 2>/dev/null || fail "wrote into no folder"
  [[ $(<"$scratch/SY.mdb") == mine ]] || fail "a schedule was overwritten"
}

refuses_senseless_words() {
  local words status
  for words in "" "starter" "years f 0 50" "years f 1 x" "other f"; do
    status=0
    # shellcheck disable=SC2086  # the words of one call
    (cd "$scratch" && "$make_schedule" $words 2>/dev/null) || status=$?
    [[ $status == 2 ]] || fail "make_schedule $words ended with $status"
  done
  [[ ! -e $scratch/f ]] || fail "senseless words made a file"
}

lays_a_whole_program_folder
is_hardened_against_broken_files
joins_the_desktops_menu
never_touches_what_is_the_users
renews_the_program_itself
mends_a_broken_off_installation
makes_no_schedule_over_another
refuses_senseless_words
