#!/usr/bin/env bash
# The guide shows every picture that lies beside it, and no other.
set -euo pipefail
cd "$1"
diff <(printf '%s\n' *.png) <(grep -o '([a-z_]*\.png)' README.md | tr -d '()' | sort -u)
