# shellcheck shell=sh
# What run, test, bench and the checks share. Sourced in the root of the tree.

say() { printf '== %s\n' "$*"; }

fail()
{
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# packages_for JOB...: what the jobs need, by Debian's and Ubuntu's names.
packages_for()
{
    for job; do
        case $job in
        build) echo "g++ cmake ninja-build ccache qtbase5-dev libqt5svg5-dev qttools5-dev" \
            "libcurl4-openssl-dev qtkeychain-qt5-dev" ;;
        run) echo "ca-certificates fonts-dejavu-core fonts-noto-cjk" ;;
        test) echo "dbus openssl python3-aiosmtpd" ;;
        desktop) echo "xvfb x11-xkb-utils openbox xdotool imagemagick" ;;
        coverage) echo "gcovr python3" ;;
        fuzz) echo "clang libclang-rt-14-dev" ;;
        lint) echo "clang clang-format-14 clang-tidy-14 clazy python3" ;;
        profile) echo "valgrind" ;;
        *) fail "no packages are known for the job $job" ;;
        esac
    done
}

# missing_packages NAME...: those of the packages that are not installed.
missing_packages()
{
    # dpkg-query fails when it does not know one of them, and still lists the others.
    installed=" $(dpkg-query -W -f '${Package}:${db:Status-Status} ' "$@" 2>/dev/null || true)"
    for package; do
        case "$installed" in
        *" $package:installed "*) ;;
        *) printf ' %s' "$package" ;;
        esac
    done
}

# need_packages_for JOB...: installs the packages that are missing. Does not touch the network if none is.
# SETTINGAREA_PACKAGES=present in the environment is for systems with another package manager.
need_packages_for()
{
    [ "${SETTINGAREA_PACKAGES:-}" != present ] || return 0
    needed=$(packages_for "$@" | tr '\n' ' ')
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail "no apt-get here. Install what Debian calls: ${needed}and call again with SETTINGAREA_PACKAGES=present"
    fi
    # Here and below the names are a list, which is to be split.
    # shellcheck disable=SC2086
    missing=$(missing_packages $needed)
    [ -n "$missing" ] || return 0
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "neither root nor sudo to install:$missing"
        as_root=sudo
    fi
    say "Install$missing"
    $as_root apt-get update -qq || fail "apt-get could not fetch its package lists"
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null ||
        fail "apt-get could not install:$missing"
}

# configure PRESET [OPTION...]: configures build/PRESET.
configure()
{
    version=$(cmake --version | sed -n 's/^cmake version \([0-9]*\.[0-9]*\).*/\1/p')
    if [ "${version%.*}" -eq 3 ] && [ "${version#*.}" -lt 21 ]; then
        fail "the presets need CMake 3.21 or later, here is $version"
    fi
    preset=$1
    say "Configure build/$preset"
    mkdir -p "build/$preset"
    log=build/$preset/configure.log
    cmake --preset "$@" >"$log" 2>&1 || {
        cat "$log" >&2
        fail "build/$preset could not be configured"
    }
}

# build PRESET [TARGET...]: builds the targets, by default everything.
build()
{
    preset=$1
    shift
    say "Build build/$preset"
    cmake --build "build/$preset" ${1:+--target "$@"} || fail "build/$preset could not be built"
}

# install_build PRESET FOLDER: installs build/PRESET into the folder, of which nothing else is left.
install_build()
{
    say "Install build/$1 to $2"
    rm -rf "$2"
    cmake --install "build/$1" --prefix "$2" >"build/$1/install.log" || fail "build/$1 could not be installed"
}

# run_tests PRESET [OPTION...]: runs the tests of build/PRESET; the options are ctest's.
run_tests()
{
    preset=$1
    shift
    say "Test build/$preset"
    ctest --test-dir "build/$preset" --output-on-failure --no-tests=error --parallel 2 "$@"
}
