#!/usr/bin/env bash
# Tests and fuzz targets are at most a third of the code, in lines that are neither blank nor comment.
set -euo pipefail
cd "$(dirname "$0")/../.."

lines() { # lines FOLDER...
    git ls-files "$@" | grep -E '\.(h|cpp)$' | xargs cat | sed -E '/^[[:space:]]*(\/\/|\/\*|\*)/d;/^[[:space:]]*$/d' | wc -l
}

tests=$(lines tests fuzz)
code=$(lines include src platform tools examples)
printf '  %d lines of tests for %d of code, %d %%\n' "$tests" "$code" $((100 * tests / code))
if ((3 * tests > code)); then
    echo 'that is more than a third'
    exit 1
fi
