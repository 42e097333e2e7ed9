# docs/script-reference.md says what the program of the folder $1 knows: each word has its sentence, and no other has.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 docs/make-reference "$1/tarnook" "$work/made.md"
diff docs/script-reference.md "$work/made.md" || { echo "run docs/make-reference $1/tarnook" && exit 1; }

# It tells of a word without a sentence, and of a sentence without a word.
mkdir "$work/docs"
cp docs/make-reference "$work/docs"
sed '/\tPLAYRAND\t/s/PLAYRAND/PLAYRANDOM/' docs/script-words.txt >"$work/docs/script-words.txt"
! python3 "$work/docs/make-reference" "$1/tarnook" "$work/made.md" 2>"$work/err" || exit 1
diff "$work/err" - <<'TEXT'
no sentence for ANIMO method PLAYRAND
no word for the sentence of ANIMO method PLAYRANDOM
TEXT
