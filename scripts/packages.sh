# Sourced by the scripts: installs the Debian packages that one of them needs, and says which.
# Nothing is done where all of them are there.

kvarnprog_need() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq \
        --no-install-recommends "${missing[@]}" >/dev/null
}

kvarnprog_build_tools=(g++ cmake ninja-build)
kvarnprog_tool_libraries=(libcli11-dev nlohmann-json3-dev libpugixml-dev)
export LC_ALL=C.UTF-8 # Wine takes its code page from the locale

kvarnprog_version() { # as the header has it
    sed -nE 's/^#define KVARNPROG_VERSION_(MAJOR|MINOR|PATCH) ([0-9]+)$/\2/p' \
        src/resources/version.h | paste -sd .
}
