#!/usr/bin/env bash
# Commits into a repository of its own with the hooks of tools/hooks switched on. Exit code 77: there is no git.
set -euo pipefail
hooks=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../tools/hooks")
command -v git >/dev/null || { echo "Skipped: there is no git"; exit 77; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export HOME=$folder GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=A GIT_COMMITTER_NAME=A EMAIL=a@example.org
unset GIT_DIR GIT_INDEX_FILE GIT_WORK_TREE
git init -q
git config core.hooksPath "$hooks"

# expect taken|refused FILE MESSAGE: a commit that touches the file, with printf's \n in the message.
failed=0
expect() {
    local wanted=$1 file=$2 message answer=refused
    message=$(printf '%b' "$3")
    mkdir -p "$(dirname "$file")"
    echo "$message" >>"$file"
    git add -A
    if git commit -q -m "$message" 2>problem; then answer=taken; fi
    [[ $answer == "$wanted" ]] || { echo "FAILED: is $answer, not $wanted: $3"; cat problem; failed=1; }
    git reset -q --hard
}

longest=$(printf 'x%.0s' {1..72})
expect taken game/Flow.cpp "$longest"
expect taken game/Flow.cpp "${longest%x}é"
expect refused game/Flow.cpp "${longest}x"
expect refused game/Flow.cpp "Deal faster."
expect taken game/Flow.cpp "Deal faster\n\nA card takes a long line to be told about, which may well have far more than 72 characters."
expect refused game/Flow.cpp "Deal faster\nat once"
expect taken core/store/Settings.cpp "Keep the bet"
for file in core/cards/Deck.cpp core/paytable/PayTable.h core/eval/X.cpp core/analysis/X.cpp data/Tolvane.ini; do
    expect refused $file "Count once"
    expect refused $file "Count once\n\nAnalysis:"
    expect taken $file "Count once\n\nAnalysis: unchanged"
done
expect taken core/eval/Y.cpp "Pay a straight\n\nAnalysis: Deuces Wild returns 0.01 % more, for its straights."
expect taken game/Flow.cpp "Revert \"${longest}\""
exit $failed
