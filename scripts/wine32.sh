#!/usr/bin/env bash
# A Wine for 32-bit Windows programs: the machine's own where its packages allow one, otherwise one
# in a small 32-bit Debian under build/.
# Usage: wine32.sh present           succeeds where a 32-bit Wine is at hand
#        wine32.sh install           provides one; a failure says why on standard error
#        wine32.sh exec COMMAND...   runs COMMAND where the 32-bit Wine is
set -euo pipefail

repo=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
root=$repo/build/wine32-root
trial=$repo/build/apt-i386
log=$repo/build/logs/wine32.log
loader=/usr/lib/wine/wine
added=
# Debian's tools for administrators may not be on the caller's path.
export PATH=$PATH:/usr/sbin:/sbin

die() {
    echo "wine32: $*" >&2
    exit 1
}

# apt-get as it would be with the i386 architecture added, on package lists of its own.
trial_apt() {
    apt-get -o APT::Architectures::=amd64 -o APT::Architectures::=i386 \
        -o Dir::State::lists="$trial/lists" -o Dir::Cache="$trial/cache" "$@"
}

# Adding an architecture changes the whole machine. So it is added only after a trial succeeded.
rehearse() {
    mkdir -p "$trial/lists/partial" "$trial/cache/archives/partial"
    trial_apt -o APT::Update::Error-Mode=any update &&
        trial_apt install -s --no-install-recommends --no-remove wine32:i386 libcups2:i386
}

install_package() {
    DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends --no-remove \
        -o DPkg::Lock::Timeout=300 wine32:i386 libcups2:i386
}

install_on_machine() {
    rehearse || return 1
    if ! dpkg --print-foreign-architectures | grep -qx i386; then
        added=1
        dpkg --add-architecture i386
    fi
    apt-get update && install_package && added=
}

# Undoes an installation that did not finish, whatever the reason.
take_back_architecture() {
    [[ -z $added ]] || dpkg --remove-architecture i386 || true
    added=
}

tidy_up() {
    take_back_architecture
    rm -rf --one-file-system "$trial" "$root.new"
}

codename() {
    (. /etc/os-release && echo "${VERSION_CODENAME:?}")
}

# The address from which this machine itself gets Debian's packages.
mirror() {
    # shellcheck disable=SC2016
    trial_apt indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' \
        'Component: main' "Codename: $(codename)" | grep -m1 -E '^(https?|file):'
}

use_proxy_of_apt() {
    local proxy=
    eval "$(apt-config shell proxy Acquire::http::Proxy)"
    [[ -z $proxy || $proxy == DIRECT ]] || export http_proxy=${http_proxy:-$proxy}
}

# Finds the command that runs another command with mounts of its own. They end with the last process
# that sees them, so that nothing is left to unmount, however a run ends. In a chroot mounts cannot
# be made private; there this works only when no mount is shared.
find_namespace() {
    namespace=(unshare --mount)
    "${namespace[@]}" true 2>/dev/null && return
    namespace=(unshare --mount --propagation unchanged)
    "${namespace[@]}" true && ! grep -q ' shared:' /proc/self/mountinfo /proc/1/mountinfo
}

install_root() {
    local source
    source=$(mirror) || { echo "no mirror of $(codename) is known to apt"; return 1; }
    use_proxy_of_apt
    find_namespace || { echo "this machine does not allow a process mounts of its own"; return 1; }
    "$repo/scripts/setup.sh" debootstrap || return 1
    rm -rf --one-file-system "$root.new"
    "${namespace[@]}" debootstrap --arch=i386 --variant=minbase \
        --include=wine,wine32,libcups2,fonts-wine,fonts-liberation "$(codename)" "$root.new" "$source" ||
        return 1
    rm -rf "$root.new"/var/cache/apt/archives/*.deb "$root.new"/var/lib/apt/lists/*
    mv "$root.new" "$root"
    "$0" exec wine --version
}

present() {
    [[ -x $loader || -x $root$loader ]]
}

install() {
    present && return
    [[ $EUID -eq 0 ]] || die "there is no 32-bit Wine and only root can install one"
    mkdir -p "$(dirname "$log")"
    trap tidy_up EXIT
    echo "setup: looking for a 32-bit Wine"
    install_on_machine >"$log" 2>&1 </dev/null && return
    take_back_architecture >>"$log" 2>&1
    echo "setup: i386 packages do not fit this machine; making a 32-bit Debian under build/"
    install_root >>"$log" 2>&1 </dev/null && return
    rm -rf --one-file-system "$root"
    die "there is no way to get a 32-bit Wine: $(tail -n1 "$log") (more in ${log#"$repo/"})"
}

# Runs the arguments inside $1, with the folders that a test uses.
# shellcheck disable=SC2016
readonly ENTER='
set -e
root=$1 repo=$2
shift 2
mount -t proc proc "$root/proc"
mount --rbind /dev "$root/dev"
for folder in /tmp "${TMPDIR:-/tmp}" "$repo" "$PWD"; do
    [ "$folder" = / ] && continue
    mkdir -p "$root$folder"
    mount --bind "$folder" "$root$folder"
done
exec chroot "$root" env --chdir="$PWD" "$@"'

exec_command() {
    [[ -x $loader ]] && exec "$@"
    [[ -x $root$loader ]] || die "there is no 32-bit Wine; run: scripts/setup.sh wine32"
    [[ $EUID -eq 0 ]] || die "only root can enter ${root#"$repo/"}"
    find_namespace || die "this machine does not allow a process mounts of its own"
    exec "${namespace[@]}" sh -c "$ENTER" sh "$root" "$repo" "$@"
}

case ${1:-} in
    present) present ;;
    install) install ;;
    exec) exec_command "${@:2}" ;;
    *) die "usage: wine32.sh present | install | exec COMMAND..." ;;
esac
