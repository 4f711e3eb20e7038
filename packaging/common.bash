# What the scripts of the packages share; to be sourced with `root`, the sources, set.

version=$(sed -n 's/^project(kiv VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
# Of everything in a package. The commit's, so that packages of one commit are alike.
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct 2>/dev/null || true)}
export LC_ALL=C.UTF-8 TZ=UTC

refuse() {
  echo "packages: $*" >&2
  exit 1
}
[[ -n $version ]] || refuse "no version in $root/CMakeLists.txt"
[[ -n $SOURCE_DATE_EPOCH ]] || refuse "no commit in $root gives the time of the files; please set SOURCE_DATE_EPOCH"

# settle FOLDER: the times and rights that every file gets.
settle() {
  find "$1" -type d -exec chmod 755 {} +
  find "$1" -type f -exec chmod 644 {} +
  find "$1" \( -path '*/bin/kivcvt' -o -path '*/lib/kivcvt/kivcvt' -o -name '*.exe' \) -type f -exec chmod 755 {} +
  find "$1" -exec touch --no-dereference -d "@$SOURCE_DATE_EPOCH" {} +
}

# keeps_no_path FOLDER FILE...: a program that names the folder it was built in would differ from the same one built
# elsewhere, and tell where that was.
keeps_no_path() {
  local folder=$1 found
  shift
  found=$(grep -lF -- "$folder" "$@" || true)
  [[ -z $found ]] || refuse "the folder of the sources, $folder, stands in: ${found//$'\n'/, }"
}
