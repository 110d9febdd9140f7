# shellcheck shell=bash
# Shell functions that the commands share. Sourced with bash, errexit and nounset on; it moves to
# the root of the tree, whatever the working directory was.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

Say() { printf '%s\n' "$*"; }
Complain() { printf '%s\n' "$*" >&2; }

# Packages FOR...: the packages needed for any of the named purposes, one on each line.
Packages() {
  local wanted=" $* " name purposes purpose
  while read -r name purposes; do
    [[ $name && $name != \#* ]] || continue
    for purpose in $purposes; do
      [[ $wanted == *" $purpose "* ]] && Say "$name" && break
    done
  done < scripts/packages
  return 0
}

# InstallMissing FOR...: installs what is not there of those packages, and says what. Silent when
# all is there. Uses sudo only when there is something to install and the user is not root.
InstallMissing() {
  if ! command -v apt-get > /dev/null || ! command -v dpkg-query > /dev/null; then
    Complain "This is no Debian machine: nothing is installed. What is needed: scripts/packages."
    return 0
  fi
  local wanted missing
  wanted=$(Packages "$@")
  # dpkg-query fails where one package is unknown to it; what it prints is good all the same.
  missing=$(comm -23 <(sort <<< "$wanted") <(
    # shellcheck disable=SC2086
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2> /dev/null |
      sed -n 's/^installed //p' | sort -u))
  [[ $missing ]] || return 0

  local asRoot=()
  if [[ $(id -u) != 0 ]]; then
    if ! command -v sudo > /dev/null; then
      Complain "These packages are missing, and there is no sudo to install them with:" $missing
      Complain "As root: apt-get install --no-install-recommends" $missing
      return 1
    fi
    asRoot=(sudo)
  fi
  # shellcheck disable=SC2086
  Say "Installing what is missing${asRoot[0]:+ (with sudo)}:" $missing
  local apt=("${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q
    -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3)
  mkdir -p build
  local log=build/install.log
  # shellcheck disable=SC2086
  if ! { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends $missing; } \
      > "$log" 2>&1 < /dev/null; then
    tail -n 30 "$log" >&2
    Complain "The packages could not be installed; the whole account is in $log."
    return 1
  fi
}

# Jobs: how many compilers to run at once: one for each core, fewer where memory is short (a
# compiler of window code takes up to 1.5 GB under the sanitizers).
Jobs() {
  local cores gigabytes
  cores=$(nproc)
  gigabytes=$(awk '/^MemAvailable/ {print int($2 / 1500000)}' /proc/meminfo)
  ((gigabytes < cores)) && cores=$gigabytes
  ((cores < 1)) && cores=1
  Say "$cores"
}

# Build PRESET LOG [CMAKE-ARGUMENT...] -- TARGET...: configures and builds; what the compiler says is
# shown only where it fails.
Build() {
  local preset=$1 log=$2 arguments=() targets
  shift 2
  while [[ $1 != -- ]]; do arguments+=("$1"); shift; done
  shift
  targets=("$@")
  mkdir -p "$(dirname "$log")"
  if ! { cmake --preset "$preset" "${arguments[@]}" &&
      cmake --build --preset "$preset" -j "$(Jobs)" --target "${targets[@]}"; } \
      > "$log" 2>&1 < /dev/null; then
    grep -v '^\[[0-9]*/[0-9]*\] \(Building\|Linking\|Automatic\)' "$log" | tail -n 60 >&2
    Complain "The build failed; the whole account is in $log."
    return 1
  fi
}
