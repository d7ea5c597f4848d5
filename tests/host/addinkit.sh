#!/usr/bin/env bash
# Installs the build, builds the examples against it, runs the one without a window, puts the add-ins into a copy of the
# sample installation, and looks for their pages in a tour of the dialog.
# Usage: addinkit.sh BUILD SOURCE COMPILER BUILD_TYPE
set -euo pipefail
build=$1 source=$2 compiler=$3 type=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
flags=$(sed -n 's/^CMAKE_CXX_FLAGS:[^=]*=//p' "$build/CMakeCache.txt")
{
    cmake -S "$source/examples/addin" -B "$work/addin" -DCMAKE_PREFIX_PATH="$work/prefix" \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_BUILD_TYPE="$type"
    cmake --build "$work/addin"
    cp -r "$work/prefix/share/orvane" "$work/home"
    cmake --install "$work/addin" --prefix "$work/home"
} >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }

# A program without a window needs no Qt, to be built or to run. Where the libraries have a sanitizer, it needs that.
sanitizer=
grep -q '^OVSETTINGS_SANITIZE_ADDRESS:BOOL=ON' "$build/CMakeCache.txt" && sanitizer=-fsanitize=address,undefined
grep -q '^OVSETTINGS_SANITIZE_THREAD:BOOL=ON' "$build/CMakeCache.txt" && sanitizer=-fsanitize=thread
{
    cmake -S "$source/examples/batch" -B "$work/batch" -DCMAKE_PREFIX_PATH="$work/prefix" -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags $sanitizer" -DCMAKE_BUILD_TYPE="$type"
    cmake --build "$work/batch"
} >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
# By the names of the libraries alone: the directory's is drawn by lot, and may have these letters, too.
if ldd "$work/batch/batch" | awk '{ print $1 }' | grep '^libQt'; then
    echo "the batch program needs Qt"
    exit 1
fi
shown=$(RSR_HOME=$work/home WDIR="$work/user;$work/home/standard" "$work/batch/batch")
[ "$shown" = "nets 0x00ffff, grid 254000 x 10 nm" ] || { echo "the batch program says: $shown"; exit 1; }

cat >"$work/home/standard/settings.xml" <<END
<settings>
  <dialog><name>Review</name><classid>Review</classid>
    <localization>$work/home/standard/addins/libreviewaddin.so</localization></dialog>
  <dialog><name>Unit</name><classid>Unit in use</classid>
    <localization>[{6D1F0C52-8E5B-4C57-9A3E-2B7D54E0A911}]</localization></dialog>
</settings>
END
"$work/prefix/bin/orvane-settings" --home "$work/home" --wdir "$work/user;$work/home/standard" \
    --project "$work/home/samples/motorcontroller/motorcontroller.prj" tour "$work/tour"
for page in ReviewPage UnitPage; do
    grep -q "$page" "$work/tour/summary.txt" || { echo "no $page:"; cat "$work/tour/summary.txt"; exit 1; }
done
