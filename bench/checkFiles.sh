#!/usr/bin/env bash
# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# checkFiles.sh XMLFRAMEWORK [FILES [ROUNDS]]
#
# How much sooner two threads check many files than one does: alternating runs of `check` over FILES (10000) copies of
# job specifications and MIC definition lists, and the medians of ROUNDS (11) rounds.
set -euo pipefail
export LC_ALL=C

tool=$(realpath -- "$1")
files=${2:-10000}
rounds=${3:-11}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir files

# documents: as many as there are files, each of its own, of 1 to 20 items.
python3 - "$files" <<'END'
import sys

for number in range(int(sys.argv[1])):
    items = range(1 + number % 20)
    if number % 2:
        limits = "".join(
            f"<Limit><ProductID>P{item}</ProductID><MaxShort>1</MaxShort><MaxLong>{number}</MaxLong><MaxBuys>3</MaxBuys>"
            "<MaxSells>4</MaxSells><ClipLimit>5</ClipLimit><Strategy>false</Strategy><Netting>true</Netting>"
            "<AccountID>6</AccountID></Limit>" for item in items)
        text = f"<KestrumJobSpec><AlgorithmSpecName>hold</AlgorithmSpecName><Limits>{limits}</Limits></KestrumJobSpec>"
    else:
        mics = "".join(f"<MICDefinition-M{item}><MIC>M{item}</MIC><Country>NORWAY</Country><Name>VENUE {number}</Name>"
                       f"<City>OSLO</City></MICDefinition-M{item}>" for item in items)
        text = f"<MICDefinitionList><MICDefinitions>{mics}</MICDefinitions></MICDefinitionList>"
    with open(f"files/{number:06}.xml", "w") as file:
        file.write(text)
END

# seconds JOBS: how long one run takes; its output is kept.
seconds() {
    local start end
    start=$(date +%s%N)
    "$tool" check --strict --jobs "$1" files >"out-$1"
    end=$(date +%s%N)
    echo $((end - start)) | sed 's/\(.*\)\(.\{9\}\)$/0\1.\2/'
}
median() { sort -n "$1" | sed -n "$(((rounds + 1) / 2))p"; }

seconds 1 >/dev/null # so that all files are in memory
for ((round = 0; round < rounds; ++round)); do
    seconds 1 >>one
    seconds 2 >>two
done
cmp out-1 out-2
tail -n 1 out-1
one=$(median one) two=$(median two)
awk -v one="$one" -v two="$two" 'BEGIN { printf "1 thread %.3f s, 2 threads %.3f s: %.2f times as fast\n", one, two, one / two }'
