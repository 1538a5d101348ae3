# shellcheck shell=bash
# For the scripts at the root: `quietly LOG COMMAND...` keeps a command's output in the file LOG and shows it
# only when the command fails.
quietly() {
  local log=$1
  shift
  mkdir -p "$(dirname "$log")"
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    echo "failed: $*" >&2
    return 1
  fi
}

# Jobs of a build; memory is short on small machines, so no more than there are processors.
# shellcheck disable=SC2034 # used by the scripts that read this file
jobs=${ZEPH_JOBS:-$(nproc 2>/dev/null || echo 2)}
