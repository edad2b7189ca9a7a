# Lines of the product that ran, by room, from the counts of lcov: awk -f coverage-by-room.awk LINES.info
# With the counts of an earlier run of the same sources before them, also how many of the lines that ran then
# still run; the others are listed in the file that the variable "lost" names:
#   awk -v lost=lost.txt -f coverage-by-room.awk BASELINE.info LINES.info

function room_of(path,    parts, count) {
    sub(/^include\/qvui\//, "", path)
    sub(/^src\//, "", path)
    count = split(path, parts, "/")
    if (parts[1] != "platform")
        return parts[1]
    return count > 3 ? parts[1] "/" parts[2] "/" parts[3] : parts[1] "/" parts[2]
}

BEGIN { FS = "[:,]" }
FNR == 1 { ++file; has_baseline = file > 1 }
$1 == "SF" { path = substr($2, length(root) + 2) }
$1 == "DA" { counts[file, path ":" $2] += $3; lines[path ":" $2] = room_of(path) }

END {
    for (line in lines) {
        room = lines[line]
        now = counts[file, line] > 0
        all[room] += ((file, line) in counts)
        ran[room] += now
        if (has_baseline && counts[1, line] > 0) {
            ++before[room]
            kept[room] += now
            if (!now && lost)
                print line | ("sort -t: -k1,1 -k2n >" lost)
        }
    }
    printf "%-24s %7s %7s %8s", "room", "lines", "ran", "share"
    printf has_baseline ? " %8s %8s\n" : "\n", "before", "kept"
    count = 0
    for (room in all)
        names[++count] = room
    for (i = 2; i <= count; ++i)
        for (j = i; j > 1 && names[j - 1] > names[j]; --j) {
            swap = names[j]; names[j] = names[j - 1]; names[j - 1] = swap
        }
    names[++count] = "all"
    for (i = 1; i <= count; ++i) {
        room = names[i]
        if (room != "all") {
            all["all"] += all[room]; ran["all"] += ran[room]
            before["all"] += before[room]; kept["all"] += kept[room]
        }
        printf "%-24s %7d %7d %6.1f %%", room, all[room], ran[room], 100 * ran[room] / all[room]
        printf has_baseline ? " %8d %6.1f %%\n" : "\n", before[room], has_baseline ? 100 * kept[room] / (before[room] ? before[room] : 1) : 0
    }
}
