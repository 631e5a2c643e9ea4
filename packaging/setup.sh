# Sourced by ./run and ./test: what both need before they can start. Everything that is printed
# here goes to standard error.

# Debian packages to build and run everything.
packages=(
  g++ cmake ninja-build python3
  qt6-base-dev qt6-translations-l10n libqt6sql6-sqlite libsimdjson-dev
  libgtest-dev libbenchmark-dev xvfb xauth xdotool
  fonts-dejavu-core fonts-noto-cjk
)

# Installs the packages that are missing, as root or with sudo.
install_packages() {
  local missing=() package
  for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing ${missing[*]}" >&2
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing and sudo is not there to install them: ${missing[*]}" >&2
      exit 1
    }
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -q >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}" >&2
}

# configure PRESET: where that was not done since the presets last changed.
configure() {
  local folder=$root/build/$1
  [ "$folder/build.ninja" -nt "$root/CMakePresets.json" ] ||
    (cd "$root" && cmake --preset "$1") >&2
}

# build PRESET [TARGET...]: configures, then builds; one at a time per checkout.
build() {
  local preset=$1 folder=$root/build/$1
  shift
  mkdir -p "$folder"
  exec 9>"$folder/.lock"
  flock 9
  configure "$preset"
  cmake --build "$folder" ${1:+--target "$@"} >&2
  exec 9>&-
}
