#!/usr/bin/env bash
# Runs the Windows programs of a cross build under Wine, in a Wine prefix that
# belongs to that build, without a display.
#
#   wine_run.sh start ARCH PREFIX             create PREFIX if needed, keep a wineserver up
#   wine_run.sh exec  ARCH PREFIX PROGRAM...  run PROGRAM with its arguments
#   wine_run.sh stop  ARCH PREFIX             end the wineserver and every Wine process
#
# ARCH is win32 or win64: the 32-bit loader runs 32-bit programs as 32-bit
# Linux processes; the 64-bit one needs nothing 32-bit from the kernel.
#
# CTest calls `exec` for each test (it is the build's CMAKE_CROSSCOMPILING_EMULATOR)
# and brackets the tests with `start` and `stop`, so the prefix is created once
# and the server's start-up (seconds) is not paid by every test.
set -euo pipefail

action=${1:?action: start, exec or stop}
arch=${2:?architecture: win32 or win64}
export WINEPREFIX=${3:?Wine prefix folder}
shift 3

case $arch in
  win32) loader=/usr/lib/wine/wine ;;
  win64) loader=/usr/lib/wine/wine64 ;;
  *) echo "wine_run.sh: unknown architecture '$arch'" >&2; exit 2 ;;
esac
if [[ ! -x $loader ]]; then
  echo "wine_run.sh: $loader is missing: install the $arch group (scripts/install_deps.sh $arch)" >&2
  exit 1
fi
export WINEARCH=$arch WINELOADER=$loader WINEDEBUG=-all
unset DISPLAY WAYLAND_DISPLAY

ensure_prefix() {
  mkdir -p "$(dirname "$WINEPREFIX")"
  # Two programs started at once must not both create the prefix.
  exec 9>"$WINEPREFIX.lock"
  flock 9
  if [[ ! -e $WINEPREFIX/.nkf-ready ]]; then
    echo "wine_run.sh: creating the Wine prefix $WINEPREFIX" >&2
    rm -rf "$WINEPREFIX"
    # Empty overrides skip the Mono and Gecko installers, which would ask.
    WINEDLLOVERRIDES="mscoree,mshtml=" "$loader" wineboot -i
    # The null driver lets programs create windows with no X server.
    "$loader" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
    wineserver -w
    touch "$WINEPREFIX/.nkf-ready"
  fi
  exec 9>&-
}

case $action in
  start)
    # The server and Wine's system processes outlive this script, so they
    # must not hold the caller's output: CTest would wait for them to close it.
    # Started here they write to a log; started by a test they would inherit
    # that test's pipes.
    {
      ensure_prefix
      wineserver -p
      "$loader" wineboot
    } </dev/null >"$WINEPREFIX.log" 2>&1
    ;;
  exec)
    ensure_prefix
    # A crashing program ends with its exception instead of starting Wine's
    # debugger, which would hold the test until CTest's timeout.
    WINEDLLOVERRIDES="winedbg.exe=d" exec "$loader" "$@"
    ;;
  stop)
    wineserver -k 2>/dev/null || true
    ;;
  *)
    echo "wine_run.sh: unknown action '$action'" >&2
    exit 2
    ;;
esac
