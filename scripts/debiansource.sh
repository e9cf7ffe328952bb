# For scripts that provide a source package of Debian's, fetched from where this machine gets its
# packages: to be sourced from the repository's folder. Such a script defines fetch_version VERSION,
# which fetches that version and unpacks it in the current folder, and calls provide_sources.
# Changes nothing on the machine.

# on_sources COMMAND...: apt's command with lists and a cache of its own and no places but those of
# sources.
on_sources() {
    local command=$1
    shift
    "$command" -o Dir::Etc::SourceList="$work/places/main.list" \
        -o Dir::Etc::SourceParts="$work/places" \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" \
        -o APT::Sandbox::User="$(id -un)" "$@"
}

# This machine's places of packages, rewritten as places of their sources.
list_places() {
    local parts file
    eval "$(apt-config shell file Dir::Etc::sourcelist/f parts Dir::Etc::sourceparts/d)"
    for file in "$file" "$parts"/*.list; do
        [[ ! -f $file ]] || sed -nE 's/^\s*deb\s/deb-src /p' "$file"
    done >"$work/places/main.list"
    for file in "$parts"/*.sources; do
        [[ ! -f $file ]] ||
            sed -E 's/^Types:.*/Types: deb-src/I' "$file" >"$work/places/${file##*/}"
    done
}

# The versions that the indexes name, the newest first.
list_versions() {
    on_sources apt-cache madison "$package" | awk '$2 == "|" { print $3 }' | sort -rV
}

# An empty $work with the indexes of sources. A place that has no sources is no failure: another may
# have those of the package.
get_indexes() {
    rm -rf --one-file-system "$work" || return 1
    mkdir -p "$work"/{places,lists/partial,cache/archives/partial,unpacked} || return 1
    list_places || return 1
    on_sources apt-get update || echo "the index of sources is incomplete"
}

# A server may name a version that it does not have yet. Then the next one is fetched.
fetch() {
    local version
    get_indexes || return 1
    for version in $(list_versions); do
        (cd "$work/unpacked" && fetch_version "$version") && return
        rm -rf --one-file-system "$work"/unpacked/*
    done
    return 1
}

# The topmost folder of the sources, which some packages have one level deeper.
unpacked() {
    local top
    for top in "$work"/unpacked/*/{,"$package"/}; do
        [[ ! -f $top$proof ]] || { echo "${top%/}" && return; }
    done
    return 1
}

# provide_sources PACKAGE PROOF: the sources in build/PACKAGE-src. They are complete when they have
# the file PROOF. The functions above see the variables.
provide_sources() {
    local package=$1 proof=$2 work=$PWD/build/$1-fetch
    local sources=$PWD/build/$1-src log=$PWD/build/logs/$1.log
    [[ ! -f $sources/$proof ]] || return 0
    echo "setup: fetching the sources of $package"
    mkdir -p "${log%/*}"
    {
        { fetch || { sleep 5 && fetch; }; } &&
            rm -rf --one-file-system "$sources" && mv "$(unpacked)" "$sources"
    } >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        echo "$package: could not fetch the source package; is a network at hand?" >&2
        return 1
    }
    rm -rf --one-file-system "$work"
}
