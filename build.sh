#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# The project's everyday commands; `./build.sh` alone lists them. Installs the Debian packages that are missing,
# keeps everything it builds under build/, and can be started from any folder.
set -euo pipefail

caller_dir=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")"
source_dir=$PWD
log_dir=$source_dir/build/logs
jobs=$(nproc)

usage() {
    cat <<'END'
usage: ./build.sh COMMAND

  demo [REGISTER.csv]     build the tool; take a register of market identifier codes to XML and back
  test [PRESET...] [-- CTEST-ARGUMENT...]
                          run all tests, in the presets release, asan and tsan unless others are named
  bench [ARGUMENT...]     measure speed beside other XML stacks, growth and memory;
                          write build/bench/results.json
  fuzz [--fast] [SECONDS] run each fuzzer for so long (60), one a core; fast: without sanitizers
  fuzz-coverage           the lines of the libraries that the fuzzers' inputs reach
  lint [library | COMMIT] formatting, layering, clang-tidy; clang-tidy only of the libraries and the tool, or of
                          what has changed since COMMIT
  coverage                which lines and branches the tests run; build/coverage/report.txt
  docs                    make the documentation site: build/docs/site
  install [PREFIX]        install libraries, headers and tool (/usr/local)
  package [check]         make Debian packages in build/packages; check: that lintian is content, that another
                          build gives the same bytes, and that they work in a bare Debian 12
  release                 the source archive and the packages of this version, with checksums; build/dist
END
}

say() { printf '== %s\n' "$*"; }
die() { printf 'build.sh: %s\n' "$*" >&2; exit 1; }

# as_root COMMAND...
as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# quietly NAME COMMAND...: what the command says goes to a log, which is shown only when it fails.
# A step that takes longer than half a minute says where it is.
quietly() {
    local log=$log_dir/$1.log status=0 watcher
    shift
    mkdir -p "$log_dir"
    say_progress "$log" &
    watcher=$!
    "$@" >"$log" 2>&1 </dev/null || status=$?
    kill "$watcher" 2>/dev/null || true
    wait "$watcher" 2>/dev/null || true
    if [ "$status" -ne 0 ]; then
        tail -n 120 "$log" >&2
        printf 'build.sh: failed: %s (all of its output: %s)\n' "$*" "$log" >&2
        return 1
    fi
}

# say_progress LOG: the last line of the log, each time that a while has passed.
say_progress() {
    local sleeper start=$SECONDS
    trap 'kill "$sleeper" 2>/dev/null; exit' TERM
    while true; do
        sleep "${NX_PROGRESS_SECONDS:-30}" &
        sleeper=$!
        wait "$sleeper"
        printf '   %d s: %s\n' "$((SECONDS - start))" "$(tail -n 1 "$1" | tr -d '\r' | cut -c 1-100)"
    done
}

library_packages=(cmake ninja-build g++ libxerces-c-dev libicu-dev libspdlog-dev libcsv-dev
    libhowardhinnant-date-dev libcli11-dev nlohmann-json3-dev)
developer_packages=("${library_packages[@]}" libgtest-dev libxml2-utils parallel pkgconf
    python3-jsonschema abigail-tools xz-utils)
bench_packages=("${developer_packages[@]}" libbenchmark-dev libxml2-dev libpugixml-dev python3)
docs_packages=("${library_packages[@]}" doxygen graphviz python3)
fuzz_packages=("${developer_packages[@]}" clang)
coverage_packages=("${developer_packages[@]}" gcovr)
package_packages=("${docs_packages[@]}" dpkg-dev file)
package_check_packages=("${package_packages[@]}" lintian debootstrap)
lint_packages=("${bench_packages[@]}" clang clang-format clang-tidy)

# need PACKAGE...
need() {
    command -v dpkg-query >/dev/null || return 0 # not a Debian: CMake says what it does not find
    local package missing=()
    for package in "$@"; do
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
        die "these packages are missing, and there is no sudo to install them: ${missing[*]}"
    say "installing ${missing[*]}"
    quietly apt-update as_root apt-get update -o Acquire::Retries=3
    quietly apt-install as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 "${missing[@]}"
}

# build DIR PRESET TARGET [CMAKE-ARGUMENT...]: configures build/DIR by the preset and builds the target in it.
build() {
    local dir=$1 preset=$2 target=$3
    shift 3
    say "building $dir"
    quietly "configure-$dir" cmake --preset "$preset" -B "build/$dir" "$@" &&
        quietly "build-$dir" cmake --build "build/$dir" --parallel "$jobs" --target "$target"
}

# What users get: the libraries and the tool, without tests or warnings as errors.
build_product() { build product release all -DXMLFRAMEWORK_DEVELOPER=OFF "$@"; }

# tool ARGUMENT...: runs xmlframework and shows the command as a person would have typed it.
tool() {
    printf '$ xmlframework %s\n' "$*"
    "$source_dir/build/product/tool/xmlframework" "$@"
}

# import_register ...: exit status 3 is no failure of the demo; the tool has named the rows it could not use.
import_register() {
    local status=0
    tool mic import "$@" || status=$?
    [ "$status" -eq 0 ] || [ "$status" -eq 3 ] || return "$status"
}

demo() {
    local register=${1:-examples/data/mic-register-sample.csv}
    if [ $# -gt 0 ]; then
        register=$(cd "$caller_dir" && realpath -- "$1")
        [ -r "$register" ] || die "cannot read $1"
    fi
    need "${library_packages[@]}"
    build_product

    local out=build/demo
    rm -rf "$out"
    mkdir -p "$out"
    import_register "$register" -o "$out/mics.xml"
    tool check "$out/mics.xml"
    tool mic export "$out/mics.xml" -o "$out/mics.csv"
    tool mic import "$out/mics.csv" -o "$out/again.xml"
    tool show "$out/mics.xml" >"$out/show.txt"
    sed -n '1,16p' "$out/show.txt"

    cmp "$out/mics.xml" "$out/again.xml" || die "the way back lost something: $out/mics.xml, $out/again.xml"
    say "$out/mics.xml and $out/again.xml are the same, byte for byte ($(wc -c <"$out/mics.xml") bytes)"
}

passed=0 failed=0 skipped=0

# count_of NAME FILE: the number that a ctest report gives for the whole run.
count_of() { grep -m 1 -o "$1=\"[0-9]*\"" "$2" | tr -dc 0-9; }

# test_preset PRESET [CTEST-ARGUMENT...]: builds and tests, and adds the outcome to the totals. What kept the
# tests from running counts as one failure.
test_preset() {
    local preset=$1 report=$source_dir/build/$1/report.xml
    shift
    rm -f "$report"
    if ! build "$preset" "$preset" all; then
        failed=$((failed + 1))
        return
    fi

    say "testing $preset"
    local status=0
    quietly "test-$preset" ctest --test-dir "build/$preset" --parallel "$jobs" --output-on-failure \
        --no-tests=error --output-junit "$report" "$@" || status=$?
    if [ ! -s "$report" ]; then
        failed=$((failed + 1))
        return
    fi

    local all bad left_out
    all=$(count_of tests "$report")
    bad=$(count_of failures "$report")
    left_out=$(($(count_of skipped "$report") + $(count_of disabled "$report")))
    [ "$status" -eq 0 ] || [ "$bad" -gt 0 ] || bad=1
    say "$preset: $all tests, $bad failed, $left_out skipped"
    passed=$((passed + all - bad - left_out))
    failed=$((failed + bad))
    skipped=$((skipped + left_out))
}

run_tests() {
    local presets=()
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        presets+=("$1")
        shift
    done
    [ $# -eq 0 ] || shift
    [ ${#presets[@]} -gt 0 ] || presets=(release asan tsan)
    need "${developer_packages[@]}"

    local preset
    for preset in "${presets[@]}"; do
        test_preset "$preset" "$@"
    done
    if [ "$skipped" -gt 0 ]; then
        echo "$passed passed, $failed failed, $skipped skipped"
    else
        echo "$passed passed, $failed failed"
    fi
    [ "$failed" -eq 0 ]
}

bench() {
    need "${bench_packages[@]}"
    build bench bench bench/all
    python3 bench/run.py build/bench/bench --output build/bench/results.json "$@"
}

# fuzz_one SECONDS PROGRAM FOLDERS ARGUMENTS: fuzzes on one core, leaves the smallest corpus that reaches
# what was reached, and prints the row of a table. Fails with a finding.
fuzz_one() {
    local seconds=$1 program=$2 folders arguments name log corpus status=0
    read -ra folders <<<"$3"
    read -ra arguments <<<"$4"
    name=$(basename "$program")
    log=$log_dir/fuzz-$name.log
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus" build/fuzz/findings
    "$program" "${arguments[@]}" -max_total_time="$seconds" -timeout=10 -report_slow_units=2 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$name-" "$corpus" "${folders[@]}" \
        >"$log" 2>&1 </dev/null || status=$?
    if grep -q 'Test unit written' "$log"; then status=1; fi # a slow one does not end the run
    if [ "$status" -eq 0 ]; then
        rm -rf "$corpus.merged"
        mkdir "$corpus.merged"
        "$program" "${arguments[@]}" -merge=1 "$corpus.merged" "$corpus" >"$log.merge" 2>&1 </dev/null
        rm -rf "$corpus" && mv "$corpus.merged" "$corpus"
    fi
    printf '%-18s %12s %8s %10s   %s\n' "$name" \
        "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" \
        "$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")" \
        "$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -n 1)" \
        "$(sed -n 's/.*Test unit written to //p' "$log" | tr '\n' ' ')"
    [ "$status" -eq 0 ] || grep -m 3 -hE 'does not hold|ERROR:|runtime error:|SUMMARY:' "$log" || true
    return "$status"
}

fuzz() {
    local dir=fuzz extra=()
    if [ "${1:-}" = --fast ]; then
        dir=fuzz-fast
        extra=(-DCMAKE_BUILD_TYPE=Release -DXMLFRAMEWORK_SANITIZE=fuzzer-no-link)
        shift
    fi
    need "${fuzz_packages[@]}"
    build "$dir" fuzz fuzz/all "${extra[@]}"
    say "fuzzing, ${1:-60} s each"
    printf '%-18s %12s %8s %10s   %s\n' fuzzer executions a-second edges findings
    export -f fuzz_one
    export log_dir
    parallel --will-cite -j "$jobs" --colsep '\|' fuzz_one "${1:-60}" '{1}' '{2}' '{3}' \
        <"build/$dir/fuzzers.txt" || die "findings: see build/fuzz/findings"
}

# The corpus, what the fuzzers start from and what they found worth keeping, replayed.
fuzz_coverage() {
    need "${fuzz_packages[@]}" llvm
    build fuzz-coverage debug fuzz/all -DCMAKE_CXX_COMPILER=clang++ \
        "-DCMAKE_CXX_FLAGS=-fprofile-instr-generate -fcoverage-mapping"
    local dir=build/fuzz-coverage program folders found objects=()
    rm -f "$dir"/*.profraw
    while IFS='|' read -r program folders _; do
        found=build/fuzz/corpus/$(basename "$program")
        mkdir -p "$found"
        # shellcheck disable=SC2086 # several folders
        LLVM_PROFILE_FILE="$dir/$(basename "$program").profraw" \
            quietly "coverage-$(basename "$program")" "$program" $folders "$found"
        objects+=(-object "$program")
    done <"$dir/fuzzers.txt"
    llvm-profdata merge -o "$dir/all.profdata" "$dir"/*.profraw
    objects+=(-object "$dir/core/libnxcore.so" -object "$dir/xmlFramework/libXMLFramework.so")
    llvm-cov report "${objects[@]:1}" -instr-profile "$dir/all.profdata" -show-region-summary=false \
        -ignore-filename-regex "^/usr/|^$source_dir/(fuzz|tests)/" | tee "$dir/report.txt"
    llvm-cov show "${objects[@]:1}" -instr-profile "$dir/all.profdata" \
        -ignore-filename-regex "^/usr/|^$source_dir/(fuzz|tests)/" >"$dir/lines.txt"
    say "line by line: $dir/lines.txt"
}

lint() {
    need "${lint_packages[@]}"
    quietly configure-lint cmake --preset bench -B build/lint -DCMAKE_CXX_COMPILER=clang++

    local clean=true sources=("^$source_dir/.*")
    if [ "${1:-}" = library ]; then
        sources=("^$source_dir/(core|include|xmlFramework|tool)/.*")
    elif [ $# -gt 0 ]; then
        mapfile -t sources < <(git diff --name-only --diff-filter=d "$1" -- '*.cpp' | sed "s,.*,^$source_dir/&\$,")
    fi
    say "formatting"
    find core include xmlFramework tool tests examples fuzz bench \( -name '*.h' -o -name '*.cpp' \) -print0 |
        xargs -0 clang-format --dry-run -Werror || clean=false
    say "layering"
    tests/checkLayering.sh "$source_dir" build/lint/public-headers.txt build/lint/library-files.txt || clean=false
    say "clang-tidy"
    quietly clang-tidy run-clang-tidy -quiet -p build/lint -j "$jobs" "${sources[@]}" || clean=false
    $clean
}

coverage() {
    need "${coverage_packages[@]}"
    build coverage coverage all
    find build/coverage -name '*.gcda' -delete
    say "testing coverage"
    # What measures time or fills the disk may fail when everything is counted; what it ran counts all the same.
    ctest --test-dir build/coverage --parallel "$jobs" -LE 'package|source' >"$log_dir/test-coverage.log" 2>&1 </dev/null ||
        sed -n '/tests FAILED:/,$p' "$log_dir/test-coverage.log"
    # A process that is killed, or that may write no more, can leave counts of a file that are none.
    gcovr --root . --filter 'core/' --filter 'include/' --filter 'xmlFramework/' --filter 'tool/' -j "$jobs" \
        --gcov-ignore-parse-errors --exclude-throw-branches --exclude-unreachable-branches --print-summary \
        --txt build/coverage/report.txt --json-summary build/coverage/summary.json build/coverage
}

# make_packages SOURCE DIR: packages of the tree SOURCE in DIR/packages. Nothing in them depends on where that is: no
# path is linked in, and what CPack writes of its own folder is the name of one that is always the same.
make_packages() {
    local source=$1 dir=$2 scratch=/tmp/xmlframework-packages
    cmake -S "$source" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
        -DCMAKE_SKIP_RPATH=ON -DXMLFRAMEWORK_DEVELOPER=OFF -DXMLFRAMEWORK_PACKAGES=ON -DXMLFRAMEWORK_DOCUMENTATION=ON \
        -DCMAKE_CXX_FLAGS="-g -gno-record-gcc-switches -ffile-prefix-map=$source/= -ffile-prefix-map=$dir=build"
    LD_LIBRARY_PATH=$dir/core:$dir/xmlFramework cmake --build "$dir" --parallel "$jobs"
    rm -rf "$dir/packages" "$scratch"
    (cd "$dir" && cpack -G DEB -B "$scratch")
    rm -rf "$scratch/_CPack_Packages"
    mv "$scratch" "$dir/packages"
}

package() {
    SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)}
    export SOURCE_DATE_EPOCH
    need "${package_packages[@]}"
    say "building packages"
    quietly package make_packages "$source_dir" "$source_dir/build/package"
    rm -rf build/packages
    mv build/package/packages build/packages
    (cd build/packages && ls -1)
    [ "${1:-}" = check ] || return 0

    need "${package_check_packages[@]}"
    say "lintian"
    tests/package/lint.sh build/packages
    say "building them again elsewhere"
    local again
    again=$(mktemp -d)
    git archive --prefix=elsewhere/ HEAD | tar -x -C "$again"
    quietly package-again make_packages "$again/elsewhere" "$again/build"
    local name
    for name in build/packages/*; do cmp "$name" "$again/build/packages/$(basename "$name")"; done
    rm -rf "$again"
    say "$(find build/packages -type f | wc -l) packages, the same byte for byte"
    say "in a bare Debian 12"
    as_root tests/package/tryInBareRoot.sh build/packages
}

docs() {
    need "${docs_packages[@]}"
    build docs release documentation -DXMLFRAMEWORK_DEVELOPER=OFF -DXMLFRAMEWORK_DOCUMENTATION=ON
    say "build/docs/site/index.html: $(find build/docs/site -name '*.html' | wc -l) pages"
}

# What is published of a version: the sources and the packages, with their checksums.
release() {
    local version dist=build/dist
    version=$(sed -nE 's/^#define XMLFRAMEWORK_VERSION_(MAJOR|MINOR|PATCH) ([0-9]+)$/\2/p' core/nxVersion.h | paste -sd.)
    grep -qE "^## \\[${version//./\\.}\\] - [0-9]{4}-" CHANGELOG.md || die "CHANGELOG.md has no date for $version"
    [ -z "$(git status --porcelain)" ] || die "the tree has changes that are not committed"

    package
    rm -rf "$dist"
    mkdir -p "$dist"
    git archive --prefix="xmlframework-$version/" HEAD | xz -9 >"$dist/xmlframework-$version.tar.xz"
    cp build/packages/* "$dist/"
    (cd "$dist" && sha256sum -- * >SHA256SUMS && cat SHA256SUMS)
    say "$dist: version $version"
}

install_product() {
    local prefix=${1:-/usr/local}
    prefix=$(cd "$caller_dir" && realpath -m -- "$prefix")
    need "${library_packages[@]}"
    build_product -DCMAKE_INSTALL_PREFIX="$prefix"

    local existing=$prefix
    while [ ! -e "$existing" ]; do existing=$(dirname "$existing"); done
    if [ -w "$existing" ]; then
        quietly install cmake --install build/product
    else
        quietly install as_root cmake --install build/product
    fi
    say "installed in $prefix"
}

command=${1:-}
[ $# -eq 0 ] || shift
case $command in
demo) demo "$@" ;;
test) run_tests "$@" ;;
bench) bench "$@" ;;
fuzz) fuzz "$@" ;;
fuzz-coverage) fuzz_coverage ;;
lint) lint "$@" ;;
coverage) coverage ;;
docs) docs ;;
install) install_product "$@" ;;
package) package "$@" ;;
release) release ;;
-h | --help | help) usage ;;
*)
    usage >&2
    exit 2
    ;;
esac
