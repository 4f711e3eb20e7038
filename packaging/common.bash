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

# brings FOLDER NAME...: the folders of these names beside the programs, into FOLDER. From the sources, for a build's
# folder may have files that somebody put there to try.
brings() {
  local target=$1 name file count
  shift
  for name in "$@"; do
    count=0
    mkdir -p "$target/$name"
    while read -r file; do
      cp "$root/$file" "$target/$name/"
      count=$((count + 1))
    done < <(sed -n "s/^$name //p" "$root/cmake/program_files.txt")
    ((count > 0)) || refuse "cmake/program_files.txt has nothing for $name"
  done
}

# settle FOLDER: the times and rights that every file gets. Of a folder, five digits take the mark of its group away.
settle() {
  find "$1" -type d -exec chmod 00755 {} +
  find "$1" -type f -exec chmod 00644 {} +
  find "$1" \( -path '*/bin/kivcvt' -o -path '*/lib/kivcvt/kivcvt' -o -name '*.exe' \) -type f -exec chmod 755 {} +
  find "$1" -exec touch --no-dereference -d "@$SOURCE_DATE_EPOCH" {} +
}

# zipped FOLDER NAME ZIP: the folder NAME in FOLDER.
zipped() {
  rm -f "$3"
  (cd "$1" && find "$2" -print | sort | zip -q -X -9 -@ "$3")
}

# keeps_no_path FOLDER FILE...: a program that names the folder it was built in would differ from the same one built
# elsewhere, and tell where that was.
keeps_no_path() {
  local folder=$1/ found wide
  shift
  wide=$(printf %s "$folder" | iconv -t UTF-16LE | od -An -v -tx1 | tr -d '\n' | sed 's/ /\\x/g')
  found=$(grep -lF -- "$folder" "$@" || true; LC_ALL=C grep -laP -- "$wide" "$@" || true)
  [[ -z $found ]] || refuse "the folder of the sources, $folder, stands in: ${found//$'\n'/, }"
}
