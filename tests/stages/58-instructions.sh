# How many instructions the hot paths need, beside what they needed when bench/instructions/counts.txt was written.
source tests/stages/common.sh
needs_packages valgrind
build linux-release --target vestrel_instructions

code=0
output=$(bench/instructions/count 2>&1) || code=$?
case $code in
  0) passed "instructions of the hot paths: $output" ;;
  3) skipped "instructions of the hot paths: $output" ;;
  *)
    while read -r line; do failed "instructions: $line"; done <<<"$output"
    echo "   bench/instructions/count --renew takes the new counts over when they are meant"
    ;;
esac
