# The commands of docs/authors.md, as a new author runs them: the blocks that are marked, in an empty folder.
# authors.sh PROGRAMS
set -euo pipefail
page=$PWD/docs/authors.md
PATH=$1:$PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
awk '/^<!-- test -->$/ { wanted = 1; next } /^```sh$/ && wanted { on = 1; next } /^```$/ { on = wanted = 0 } on' "$page" >commands
[ "$(grep -c . commands)" -gt 40 ] || { echo "the page's commands aren't found" && exit 1; }
bash -euo pipefail commands >out 2>&1 || { cat out && exit 1; }
[ "$(cat said.txt)" = "msgbox: three" ] || { echo "it says: $(cat said.txt)" && exit 1; }
grep -q "^event SPIN: 2 entries" out || { cat out && exit 1; }
# The ball is where the third click was, and no longer where it began.
colour() { convert shot.png -format "%[pixel:p{$1}]" info:; }
[ "$(colour 600,400)" != "$(colour 700,400)" ] || { echo "no ball in the picture: $(colour 600,400)" && exit 1; }
[ "$(colour 130,330)" = "$(colour 700,330)" ] || { echo "the ball is still where it was" && exit 1; }
# What the page says that --check answers, it does.
grep -qF "\`$(grep "nothing to tell" out)\`" "$page" || { echo "--check says: $(cat out)" && exit 1; }
