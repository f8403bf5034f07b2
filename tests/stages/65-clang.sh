# The other compiler: everything but the tests built with clang, as the fuzz targets need it.
source tests/stages/common.sh
needs_packages clang-14 libclang-rt-14-dev
build linux-fuzz
