# For scripts that fetch a source package of Debian's, from where this machine gets its packages: to
# be sourced, with $work set to a folder that may be emptied. Changes nothing on the machine.

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

# The versions of a source package that the indexes name, the newest first.
list_versions() {
    on_sources apt-cache madison "$1" | awk '$2 == "|" { print $3 }' | sort -rV
}

# An empty $work with the indexes of sources.
get_indexes() {
    rm -rf --one-file-system "$work" || return 1
    mkdir -p "$work"/{places,lists/partial,cache/archives/partial,unpacked} || return 1
    list_places || return 1
    on_sources apt-get update || echo "the index of sources is incomplete"
}
