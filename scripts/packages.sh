# The Debian packages that TintBench is built, run and checked with. To be sourced.

buildPackages=(g++ cmake ninja-build ccache qt6-base-dev qt6-serialport-dev)
# The program's own window: a platform for each kind of desktop, and letters to write with.
windowPackages=(qt6-qpa-plugins qt6-wayland fonts-dejavu-core)
checkPackages=(libgtest-dev libgmock-dev clang clang-format clang-tidy libclang-rt-dev lld lrzsz
  fonts-dejavu-core)
benchPackages=(xvfb xdotool lrzsz qt6-qpa-plugins fonts-dejavu-core)

# install_missing PACKAGE...: installs those that aren't there, and asks for rights only then.
install_missing() {
  local missing=() package asRoot=()
  for package in "$@"; do
    if [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) != installed ]]; then
      missing+=("$package")
    fi
  done
  ((${#missing[@]})) || return 0
  ((EUID == 0)) || asRoot=(sudo)
  echo "Installing ${missing[*]}"
  "${asRoot[@]}" apt-get update -q
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
}
