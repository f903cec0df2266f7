# Sourced by run, test and bench: `need GROUP...` installs the missing Debian packages of these groups.
#   native   compiler, build tools, GoogleTest, Google Benchmark, checkers of the workflows
#   windows  cross compiler and Wine
#   window   a display without a screen, keys, clicks and screenshots
#   check    formatter, linter, fuzzers
#   clang    compiler and tools of LLVM for other targets
#   help     compiler of the help file
#   release  builder of the installer, packer of the zip, signer, readers of the manifests
#   bench    programs that the benchmarks compare with

packages() {
  case "$1" in
    native) echo g++ cmake ninja-build python3 python3-jsonschema python3-yaml yamllint shellcheck googletest libbenchmark-dev ;;
    windows) echo g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 wine wine64 ;;
    window) echo xvfb xauth xdotool imagemagick openbox fonts-dejavu-core ;;
    help) echo fp-utils ;;
    release) echo nsis zip osslsigncode openssl python3-jsonschema python3-yaml ;;
    bench) echo fd-find bfs rmlint bleachbit ;;
    check) echo clang clang-format clang-tidy libclang-rt-14-dev ;;
    clang) echo clang clang-tools llvm ;;
  esac
}

need() {
  missing=
  for group in "$@"; do
    for package in $(packages "$group"); do
      dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
        missing="$missing $package"
    done
  done
  [ -n "$missing" ] || return 0
  if ! command -v apt-get >/dev/null; then
    echo "These packages are missing, and there is no apt-get to install them:$missing" >&2
    exit 1
  fi
  as_root=
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing; installing them needs root or sudo:$missing" >&2
      exit 1
    fi
    as_root="sudo"
  fi
  echo "Installing:$missing" >&2
  $as_root env DEBIAN_FRONTEND=noninteractive sh -c \
    "apt-get update -qq && apt-get install -qq -y --no-install-recommends $missing" >/dev/null || {
    echo "apt-get could not install:$missing" >&2
    exit 1
  }
}

# Configures and builds a preset.
build() {
  cmake --preset "$1" >"/tmp/tavix-configure-$$" 2>&1 || {
    cat "/tmp/tavix-configure-$$" >&2
    exit 1
  }
  rm -f "/tmp/tavix-configure-$$"
  shift_preset=$1
  shift
  cmake --build --preset "$shift_preset" "$@"
}
