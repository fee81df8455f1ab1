# Sourced by run and test: installs what is missing on a Debian machine, and says what it installs.
# needs PACKAGE...

needs() {
    missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null)" = "install ok installed" ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing from Debian: ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "Not root and no sudo here; run as root: apt-get install ${missing[*]}" >&2
            return 1
        }
        root=(sudo)
    fi
    local log
    log=$(mktemp)
    if ! { "${root[@]}" apt-get update &&
        DEBIAN_FRONTEND=noninteractive "${root[@]}" apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        rm -f "$log"
        echo "The packages could not be installed." >&2
        return 1
    fi
    rm -f "$log"
}

# The tests start a PostgreSQL cluster of their own; the package is not to start one besides. To be called before it is
# installed.
without_main_cluster() {
    local conf=/etc/postgresql-common/createcluster.conf
    dpkg-query -W postgresql-15 >/dev/null 2>&1 || [ -e "$conf" ] && return 0
    local root=()
    [ "$(id -u)" -eq 0 ] || root=(sudo)
    "${root[@]}" mkdir -p "${conf%/*}" && echo "create_main_cluster = false" | "${root[@]}" tee "$conf" >/dev/null
}

build_packages=(g++ cmake ninja-build ccache qt6-base-dev libgl1-mesa-dev libsqlite3-dev libpq-dev libgtest-dev libbenchmark-dev
    libxlsxwriter-dev libgsf-1-dev libcups2-dev mdbtools-dev fontconfig fonts-dejavu-core fonts-liberation)
test_packages=(postgresql-15 poppler-utils cups-daemon locales procps unzip)
package_packages=(debhelper dpkg-dev lintian)
