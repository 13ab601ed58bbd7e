#!/usr/bin/env bash
# Runs the Windows programs of a cross build under Wine, in a Wine prefix that
# belongs to that build, without a display.
#
#   wine_run.sh start PREFIX             create PREFIX if needed, keep a wineserver up
#   wine_run.sh exec  PREFIX PROGRAM...  run PROGRAM with its arguments
#   wine_run.sh stop  PREFIX             end the wineserver and every Wine process
#
# CTest calls `exec` for each test (it is the build's CMAKE_CROSSCOMPILING_EMULATOR)
# and brackets the tests with `start` and `stop`, so the prefix is created once
# and the server's start-up (seconds) is not paid by every test.
set -euo pipefail

action=${1:?action: start, exec or stop}
export WINEPREFIX=${2:?Wine prefix folder}
shift 2

export WINEARCH=win32 WINEDEBUG=-all
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
    WINEDLLOVERRIDES="mscoree,mshtml=" wineboot -i
    # The null driver lets programs create windows with no X server.
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
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
      wineboot
    } </dev/null >"$WINEPREFIX.log" 2>&1
    ;;
  exec)
    ensure_prefix
    exec wine "$@"
    ;;
  stop)
    wineserver -k 2>/dev/null || true
    ;;
  *)
    echo "wine_run.sh: unknown action '$action'" >&2
    exit 2
    ;;
esac
