#!/usr/bin/env bash
# Runs one Windows program under Wine in the prefix of the current test run
# (see tests/run-all.sh), quietly, without Mono or Gecko.
set -euo pipefail
: "${WINEPREFIX:?the Wine prefix of the test run is not set}"
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
exec wine "$@"
