# Shared by run.sh and test.sh: says what it does, installs what is missing, fails with one clear sentence.

say() { printf '\033[1m%s\033[0m\n' "== $*"; }

die() {
    printf 'kestrum: %s\n' "$*" >&2
    exit 2
}

# The packages of the given groups of packages.txt.
packages_of() {
    for group in "$@"; do
        awk -v group="[$group]" '
            /^\[/ { inside = ($0 == group); next }
            inside && NF && !/^#/ { print $1 }' packages.txt
    done
}

# Whether the packages may be installed: asks who is watching, unless told before (yes=1).
may_install() {
    [ -z "${yes:-}" ] && [ -t 0 ] && [ -t 1 ] || return 0
    printf 'These packages are missing: %s\nInstall them now%s? [y/N] ' "$*" "${as_root:+ with $as_root}"
    read -r answer || answer=
    case $answer in
    [yY] | [yY][eE][sS]) return 0 ;;
    esac
    return 1
}

# Installs what is missing of the given groups; quick when nothing is.
install_packages() {
    command -v dpkg-query >/dev/null 2>&1 ||
        die "this script installs Debian packages and finds no dpkg here; packages.txt lists what the build needs"
    missing=
    for package in $(packages_of "$@"); do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    as_root=
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null 2>&1 ||
            die "packages are missing and neither root nor sudo is at hand; have these installed: ${missing# }"
        as_root=sudo
    fi
    may_install "${missing# }" || die "nothing installed; missing are: ${missing# }"
    say "Installing${missing}"
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -qq || die "apt-get update failed: is the network there, and may you use ${as_root:-it}? missing are: ${missing# }"
    # shellcheck disable=SC2086  # the list is words on purpose
    $as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null ||
        die "apt-get could not install:${missing}"
}
