#!/bin/sh
# Runs the two commands of the README, as printed there, on a Debian 12 with nothing but git and
# certificates, made in build/bare/root/. Call: scripts/bare.sh
set -eu
cd "$(dirname "$0")/.."
work=$PWD/build/bare
root=$work/root

skip() {
  echo "bare: skipped, $1"
  exit 0
}

# The package source of this machine that holds Debian 12.
mirror() {
  apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
    awk '$1 ~ /^(bookworm|stable|oldstable)$/ && $2 == "main" { print $3; exit }'
}

make_root() {
  set -- --variant=minbase --include=git,ca-certificates bookworm "$root" "$(mirror)"
  if command -v mmdebstrap >/dev/null; then
    mmdebstrap --mode=root --quiet "$@"
  else
    debootstrap "$@"
    rm -rf "$root"/var/lib/apt/lists/*
  fi
  cp /etc/resolv.conf /etc/hosts "$root/etc/"
  git clone --quiet --no-hardlinks . "$root/root/project"
}

# Runs command $1 in the clone; the log stays in build/bare/.
run() {
  log=$work/$(echo "$1" | tr -cd 'a-z').log
  start=$(date +%s)
  chroot "$root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM=dumb \
    sh -c "cd /root/project && $1" >"$log" 2>&1 || {
    tail -n 60 "$log"
    echo "bare: $1 failed; all of its output is in $log"
    exit 1
  }
  echo "bare: $1 passed after $(($(date +%s) - start)) s"
}

# The namespace holds every mount and process that is made here; both end with it.
if [ "${1:-}" = in-namespace ]; then
  make_root
  mount -t proc proc "$root/proc"
  commands=$(grep -oE '^\./dev (demo|test)\b' "$root/root/project/README.md")
  [ "$commands" = "./dev demo
./dev test" ] || { echo "bare: README.md does not print the two commands"; exit 1; }
  run "./dev demo"
  run "./dev test"
  exit
fi

[ "$(id -u)" -eq 0 ] || skip "it takes root"
command -v mmdebstrap >/dev/null || command -v debootstrap >/dev/null ||
  skip "neither mmdebstrap nor debootstrap is installed"
git rev-parse --quiet --verify HEAD >/dev/null 2>&1 || skip "this is no git clone"
unshare --mount --pid --fork true 2>/dev/null || skip "this machine gives no namespaces"
[ -n "$(mirror)" ] || skip "apt names no source of Debian 12"
[ -z "$(git status --porcelain)" ] || echo "bare: takes the last commit; what is not committed is left out"
rm -rf --one-file-system "$root"
mkdir -p "$root"
status=0
unshare --mount --pid --fork --kill-child "$PWD/scripts/bare.sh" in-namespace || status=$?
rm -rf --one-file-system "$root"
exit $status
