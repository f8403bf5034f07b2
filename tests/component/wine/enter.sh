#!/usr/bin/env bash
# enter.sh ROOT FOLDER COMMAND...: runs a command inside the system tree at ROOT, where FOLDER is to be seen under its
# own name. Needs root; the mounts are this run's own and end with it.
set -euo pipefail
root=$1 folder=$2
shift 2
if [ "${VESTREL_ENTERED-}" != yes ]; then VESTREL_ENTERED=yes exec unshare --mount "$0" "$root" "$folder" "$@"; fi
mkdir -p "$root$folder"
mount --rbind /proc "$root/proc"
mount --rbind /dev "$root/dev"
mount --bind "$folder" "$root$folder"
exec chroot "$root" env -C "$folder" "$@"
