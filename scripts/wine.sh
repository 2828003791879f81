# shellcheck shell=bash disable=SC2154
# To be sourced after `build` is set: a Wine prefix of that build's own, and running a program in it.

cache=${XDG_CACHE_HOME:-$HOME/.cache}/windows-stack
export WINEPREFIX=$build/prefix WINEDEBUG=-all WINEDLLOVERRIDES="winedbg.exe=d;mscoree,mshtml="
export FONTCONFIG_FILE=$cache/fonts.conf # no fonts but those of the prefix
trap 'wineserver -k' EXIT

# The prefix that comes with the stack, whose user's folders become folders of its own instead of links to the real ones.
prepare_prefix() {
    rm -rf "$WINEPREFIX"
    cp -a "$cache/prefix" "$WINEPREFIX"
    find "$WINEPREFIX/drive_c/users" -type l -exec sh -c 'rm "$1" && mkdir "$1"' sh {} \;
}

# For programs that lie where they were built: the stack's libraries are found, and the toolkit leaves the desktop alone.
use_stack() {
    export WINEPATH="Z:${cache//\//\\}\\stack\\bin"
    export NO_AT_BRIDGE=1 GSETTINGS_BACKEND=memory GTK_THEME=Adwaita GIO_USE_VFS=local
    unset GTK_MODULES DISPLAY
}

# Runs a program with a screen of its own and a time limit in seconds, and ends what it has left behind.
on_screen() {
    local limit=$1 status=0
    shift
    timeout -k 10 "$limit" xvfb-run -a -s "-screen 0 1280x1024x24" "$@" || status=$?
    wineserver -k
    wineserver -w
    return "$status"
}
