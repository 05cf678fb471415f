#!/usr/bin/env bash
# Checks the sources of a target together, as if they were one: clang-tidy's time goes into the
# headers that they share.
#   scripts/tidy.sh BUILD_FOLDER SOURCE...
set -uo pipefail

build=$1
shift

check() {  # source...
  local output status include=() source
  for source in "${@:1:$#-1}"; do include+=(--extra-arg=-include "--extra-arg=$source"); done
  output=$(clang-tidy --quiet -p "$build" --checks=-bugprone-suspicious-include "${include[@]}" \
    "${!#}" 2>&1)
  status=$?
  if (($# > 1)) && [[ $output == *'[clang-diagnostic-error]'* ]]; then
    check_apart "$output" "$@"
    return
  fi
  # Without the count of warnings that it kept from us in the headers of libraries.
  grep -v ' warnings\? \(and .* \)\?generated\.$' <<<"$output"
  return "$status"
}

# Sources that use a name for something else than a source before them cannot be read with it.
check_apart() {  # output source...
  local errors source clashing=() others=() status=0
  errors=$(grep -F '[clang-diagnostic-error]' <<<"$1")
  shift
  for source in "$@"; do
    if [[ $errors == *"$source:"* ]]; then clashing+=("$source"); else others+=("$source"); fi
  done
  if ((${#clashing[@]} > 0 && ${#others[@]} > 0)); then
    check "${others[@]}" || status=1
    check "${clashing[@]}" || status=1
  else
    for source in "$@"; do check "$source" || status=1; done
  fi
  return "$status"
}

check "$@"
