# Functions for scripts that fetch a Debian source package from the servers from which this machine
# gets its packages. A script sources this file in the repository's folder, defines the function
# fetch_version VERSION, which fetches that version and unpacks it in the current folder, and calls
# provide_sources. Nothing changes outside the build folder.

# on_sources COMMAND...: runs a command of apt with the servers of source packages only, and with
# lists and a cache below $work.
on_sources() {
    local command=$1
    shift
    "$command" -o Dir::Etc::SourceList="$work/places/main.list" \
        -o Dir::Etc::SourceParts="$work/places" \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" \
        -o APT::Sandbox::User="$(id -un)" "$@"
}

# Writes apt's list of servers anew, with source packages instead of binary packages.
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

# Prints the versions that the indexes name, the newest first.
list_versions() {
    on_sources apt-cache madison "$package" | awk '$2 == "|" { print $3 }' | sort -rV
}

# Empties $work and fetches the indexes of source packages into it. A server without an index is no
# failure, because another one may have the package.
get_indexes() {
    rm -rf --one-file-system "$work" || return 1
    mkdir -p "$work"/{places,lists/partial,cache/archives/partial,unpacked} || return 1
    list_places || return 1
    on_sources apt-get update || echo "the index of sources is incomplete"
}

# Fetches the newest version that can be fetched. An index may name a version that the server does
# not have yet.
fetch() {
    local version
    get_indexes || return 1
    for version in $(list_versions); do
        (cd "$work/unpacked" && fetch_version "$version") && return
        rm -rf --one-file-system "$work"/unpacked/*
    done
    return 1
}

# Prints the folder that has the file $proof. In some packages it is one level deeper.
unpacked() {
    local top
    for top in "$work"/unpacked/*/{,"$package"/}; do
        [[ ! -f $top$proof ]] || { echo "${top%/}" && return; }
    done
    return 1
}

# provide_sources PACKAGE PROOF: puts the sources into build/PACKAGE-src. They count as complete
# when they have the file PROOF. The functions above use the local variables of this one.
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
