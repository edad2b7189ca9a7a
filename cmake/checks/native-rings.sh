#!/usr/bin/env bash
# The files of each folder of platform/native stand in layers: no file reaches itself again through the headers that
# it and those include. A source and the header of its name count as one.
set -euo pipefail
cd "$(dirname "$0")/../.."

edges() { # edges FOLDER : "file other" for each include within the folder
    find "$1" -maxdepth 1 -name '*.cpp' -o -maxdepth 1 -name '*.h' |
        xargs -r grep -HoE '#include "native/[a-z0-9_/]+\.h"' |
        sed -E 's/^([^:]*\/)?([^\/:]+)\.(cpp|h):#include "native\/(.*)\.h"$/\1 \2 \4/' |
        awk -v folder="${1#platform/native/}/" '{
            other = $3
            if (index(other, folder) == 1) {
                sub(folder, "", other)
                if (other != $2 && other !~ /\//)
                    print $2, other
            }
        }' | sort -u || true
}

status=0
while read -r folder; do
    # tsort names the members of a ring on its error stream.
    if rings=$(edges "$folder" | tsort 2>&1 >/dev/null) && [[ -z $rings ]]; then
        continue
    fi
    printf 'files of %s include each other in a ring:\n%s\n' "$folder" "$rings"
    status=1
done < <(find platform/native -type d)
exit $status
