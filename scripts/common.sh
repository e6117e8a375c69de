# shellcheck shell=bash
# Shared functions, sourced by the other scripts from the repository root.

die()
{
  printf '%s: %s\n' "$(basename "$0")" "$1" >&2
  exit "${2:-1}"
}

headline()
{
  printf '\n== %s\n' "$*"
}

# build PRESET [TARGET] [cmake option...]: configures (quickly if nothing changed) and builds a preset, or one of its
# targets, in build/PRESET.
build()
{
  local preset=$1 quiet=() target=() said
  shift
  if [ $# -gt 0 ] && [[ $1 != -* ]]; then
    target=(--target "$1")
    shift
  fi
  [ -t 1 ] || quiet=(-- --quiet)
  if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER:-ccache}
    # Otherwise it takes nothing that uses a precompiled header.
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS:+$CCACHE_SLOPPINESS,}pch_defines,time_macros
  fi
  if ! said=$(cmake --preset "$preset" "$@" 2>&1); then
    printf '%s\n' "$said" >&2
    return 1
  fi
  cmake --build --preset "$preset" "${target[@]}" "${quiet[@]}"
}
