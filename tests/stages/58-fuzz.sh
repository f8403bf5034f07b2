# Every fuzz target over its corpus and then half a minute of new inputs, two targets at once. The new ones come of one
# seed, so that what fails is likely to have been broken by a change. VESTREL_SCALE=long gives each target half an hour and
# another seed each time, and keeps what was learned before.
source tests/stages/common.sh
needs_packages clang-14 libclang-rt-14-dev llvm-14
build linux-fuzz --target fuzz

targets=$(ls fuzz/corpus)
logs=build/fuzz/logs
mkdir -p "$logs"
if [ "${VESTREL_SCALE-}" = long ]; then
  seconds=1800 more=-seed=0
else
  seconds=30 more=-seed=1
  for target in $targets; do rm -rf "build/fuzz/$target"; done
fi

printf '%s\n' $targets | xargs -P 2 -I {} sh -c \
  "fuzz/run {} $seconds $more >$logs/{}.log 2>&1; echo \$? >$logs/{}.status"

for target in $targets; do
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$logs/$target.log")
  if [ "$(cat "$logs/$target.status")" = 0 ]; then
    passed "fuzz $target: $runs runs without a find"
  else
    grep -E -A 12 'FAULT|ERROR|runtime error|Test unit' "$logs/$target.log" || tail -20 "$logs/$target.log"
    failed "fuzz $target: the input is in build/fuzz/finds"
  fi
done
