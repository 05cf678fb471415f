#!/bin/sh
# Puts the planner of this folder into the desktop's menu. To be run again after the folder moved.
set -eu
folder=$(cd "$(dirname "$0")" && pwd)
data=${XDG_DATA_HOME:-$HOME/.local/share}
name=org.vellora.Vellora.desktop

# The entry's own rules: a quoted argument escapes " ` $ \ by a backslash, then every backslash of
# a value is doubled, and a percent sign that starts no field code as well.
command=$(printf '%s' "$folder/vellora" | sed -e 's/["`$\\]/\\&/g' -e 's/\\/\\\\/g' -e 's/%/%%/g')

mkdir -p "$data/applications" "$data/icons"
cp -R "$folder/share/icons/." "$data/icons/"
{
  grep -v '^Exec=' "$folder/share/applications/$name"
  printf 'Exec="%s"\n' "$command"
} >"$data/applications/$name"
