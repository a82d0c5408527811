#!/usr/bin/env bash
# Runs every fuzz target over its kept corpus: regression.sh FOLDER_OF_TARGETS
set -euo pipefail
bin=$1
root=$(dirname "$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")")
source "$root/scripts/lib/fuzz.sh"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
failures=0
for target in $(fuzz_targets); do
    mapfile -t files < <(find "$fuzz_folder/corpus/$target" -type f)
    read -ra limits < <(fuzz_limits "$target" | paste -sd' ')
    # Files by name: a folder's would be cut to the longest input of longer runs.
    if ((${#files[@]})) && "$bin/$target" "${limits[@]}" -artifact_prefix="$bin/$target-" "${files[@]}" >"$log" 2>&1; then
        echo "$target: ${#files[@]} inputs"
    else
        echo "FAILED: $target with ${#files[@]} inputs"
        tail -n 40 "$log"
        failures=$((failures + 1))
    fi
done
exit $((failures > 0))
