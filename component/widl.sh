#!/bin/sh
# Runs widl with the arguments given. By-reference arguments have defaults here on purpose (the library's own tool finishes
# them), so its warning about each of them is left out.
{ "$@" 2>&1 >&3 | grep -v 'warning: non-null pointer default value'; } 3>&1 >&2
exec "$@" 2>/dev/null
