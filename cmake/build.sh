# What ./play and ./check share: packages, configure, build. Sourced by them in the project's folder.
# shellcheck shell=bash

export LC_ALL=C.UTF-8

# say MESSAGE: one line on standard error, with the script's name before it.
say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

# missing_packages: the lines of packages.txt that this machine lacks.
missing_packages() {
    local wanted
    wanted=$(sed 's/#.*//; s/[[:space:]]//g; /^$/d' packages.txt | sort -u)
    # shellcheck disable=SC2086 # a word for each package
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
        sed -n 's/^installed //p' | sort -u | comm -23 <(echo "$wanted") -
}

# install_packages: installs what is missing; on failure says what to do and returns 1.
install_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "no apt-get here: going on with what the machine has (packages.txt says what is needed)"
        return 0
    fi
    local missing as_root=() log=build/install.log
    missing=$(missing_packages | paste -sd ' ')
    [ -n "$missing" ] || return 0
    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "packages are missing and there is no sudo; run as root: apt-get install $missing"
            return 1
        fi
        as_root=(sudo)
    fi
    say "installing $missing"
    mkdir -p build
    as_root+=(env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300)
    # A list that can't be refreshed may still do: what counts is the installation.
    "${as_root[@]}" update >"$log" 2>&1 || true
    # shellcheck disable=SC2086 # a word for each package
    if ! "${as_root[@]}" install --no-install-recommends $missing >>"$log" 2>&1; then
        say "could not install the packages ($(grep -m1 '^E:' "$log" || echo "see $log"));" \
            "run as root: apt-get install $missing"
        return 1
    fi
}

# configure PRESET: makes build/PRESET, unless it is there and the presets haven't changed since.
configure() {
    local ninja=build/$1/build.ninja
    if [ -f "$ninja" ] && [ ! CMakePresets.json -nt "$ninja" ]; then return 0; fi
    mkdir -p build
    cmake --preset "$1" >"build/$1.log" 2>&1 || { cat "build/$1.log" && return 1; }
}

# build PRESET [TARGET...]: configures and builds with all cores, past errors to the end. Programs whose
# sources are gone go too.
build() {
    local preset=$1
    shift
    configure "$preset" && cmake --build "build/$preset" ${1:+--target "$@"} -- -k 0 &&
        ninja -C "build/$preset" -t cleandead >/dev/null
}

# complaints LOG: what a failed step wrote, without the lines that only tell of progress.
complaints() { grep -vE '^\[[0-9]+/[0-9]+\] |^-- |^[^ ]*cmake -E env CCACHE|^[0-9]+ warnings? generated' "$1" | head -n 300; }
