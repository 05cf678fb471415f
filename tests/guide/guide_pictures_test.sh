#!/usr/bin/env bash
# The guide's pictures can be made, and the guide shows each of them and no others.
set -euo pipefail
maker=$1 guide=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$maker" "$scratch" 2>"$scratch/log" || { cat "$scratch/log"; exit 1; }
made=$(cd "$scratch" && printf '%s\n' *.png | sort)
shown=$(grep -o '([a-z_]*\.png)' "$guide/README.md" | tr -d '()' | sort -u)
kept=$(cd "$guide" && printf '%s\n' *.png | sort)
diff <(echo "$made") <(echo "$shown") || { echo "made < and shown > differ"; exit 1; }
diff <(echo "$made") <(echo "$kept") || { echo "made < and kept > differ"; exit 1; }
