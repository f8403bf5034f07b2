# The release build, as ./run makes it.
source tests/stages/common.sh
build linux-release
