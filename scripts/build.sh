# What ./run, ./check and ./bench share: packages and builds. To be sourced from the root.
source scripts/packages.sh

jobs=${JOBS:-$(nproc)}

# say TEXT...: a heading, with the seconds since the script's start.
say() { printf '\n== %s (%d s)\n' "$*" "$SECONDS"; }

# build PRESET: configures and builds in build/PRESET, through ccache. The paths that ccache
# keeps are relative to the root, so that one clone finds what another one has compiled.
build() {
  local folder=build/$1
  mkdir -p "$folder"
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
  if ! cmake --preset "$1" >"$folder/configure.log" 2>&1; then
    cat "$folder/configure.log" >&2
    return 1
  fi
  cmake --build --preset "$1" --parallel "$jobs"
}
