# Sourced by run, test, pack and the continuous integration: installs what is missing, builds a preset,
# runs a Windows program under Wine. All of it does nothing that is done already.

native_packages="g++ clang cmake ninja-build googletest libbenchmark-dev libcli11-dev nlohmann-json3-dev
    libfreetype-dev libpng-dev llvm fonts-wine fonts-vlgothic fonts-dejavu-core
    fonts-wqy-microhei python3"
sanitizer_packages="libclang-rt-14-dev"
cross_packages="g++-mingw-w64-x86-64-posix"
windows_packages="$cross_packages wine wine64 xvfb xauth"
# What help and manuals are made with: their compilers and the manuals' fonts.
help_packages="fp-utils weasyprint fonts-liberation2 fonts-noto-cjk"

# Installs those of the packages named that are not there.
install_packages() {
    local missing="" package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing="$missing $package"
    done
    [ -z "$missing" ] && return
    local as_root=""
    [ "$(id -u)" = 0 ] || as_root=sudo
    echo "Installing:$missing"
    $as_root apt-get update -qq
    $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# Configures (the first time) and builds a preset, or of it what further words say; shows what was
# printed only when it failed.
build_preset() {
    local log="build/$1.log"
    mkdir -p build
    if ! {
        { [ -f "build/$1/build.ninja" ] || cmake --preset "$1"; } && cmake --build --preset "$@"
    } >"$log" 2>&1; then
        cat "$log"
        return 1
    fi
}

# Runs a Windows program in a Windows of our own. The first word is its user's language and country.
run_windows() {
    local language=$1
    shift
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        wineboot --init >/dev/null 2>&1
        # Windows draws its frames itself and does not wait for a window manager, which is not there.
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
        wineserver --wait
        cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    fi
    env LC_ALL="$language.UTF-8" wine "$@"
}

# Goes on inside a virtual display where there is none, with a Windows that nothing else runs in.
prepare_windows() {
    if [ -z "${DISPLAY:-}" ]; then
        exec xvfb-run -a -s "-screen 0 1280x1024x24" "./$(basename "$0")" "$@"
    fi
    export WINEPREFIX="$PWD/build/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;compstui=n,b"
    wineserver --kill || true
    # One that was left in the middle of something may hold printers that were to go again.
    [ ! -e build/wine.busy ] || rm -rf build/wine
    mkdir -p build/wine
    touch build/wine.busy
    trap 'status=$?; wineserver --kill || true; [ $status != 0 ] || rm -f build/wine.busy' EXIT
}

# Builds the help files and manuals into build/help, with pictures that the native tool takes.
build_documents() {
    install_packages $native_packages $help_packages
    build_preset native --target kpdtool
    rm -rf build/help
    package/build_help.py --out build/help --kpdtool build/native/kpdtool
    package/build_manuals.py --out build/help --kpdtool build/native/kpdtool
}
