# A session in the module's dialogs; to be sourced by a script that has set `probe` and `here`. dialogs.bash has the
# functions. The process `helper`, if there is one, is ended.

export CADHOST_SIZE=1280x960
# Wine's folder browser knows a folder by its time too, and finds none below a folder that changes meanwhile, as
# the system's temporary one always does.
work=$(mktemp -d -p "$(dirname -- "${CADHOST_BIN:?is the folder of the Windows programs}")")

# The programs are copied: the specifications of the dialog stand in a folder beside the module.
cp -r "$CADHOST_BIN" "$work/bin"
rm -rf "$work"/bin/test_*.exe "$work/bin/CFG"
CADHOST_BIN=$work/bin
. "$here/session.bash"
. "$here/dialogs.bash"
export KIV_CONFIG_FOLDER
KIV_CONFIG_FOLDER=$(cadhost_path "$work/settings")
mkdir -p "$work/settings" "$work/bin/CFG"

finish() {
  local status=$?
  if ((status != 0)); then picture failed; fi
  if [[ -n ${helper:-} ]]; then kill "$helper" 2>/dev/null || true; fi
  cadhost_stop
  rm -rf "$work"
  exit "$status"
}
trap finish EXIT
