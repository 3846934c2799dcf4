#!/usr/bin/env bash
# The Windows build against a real HID stack: Wine's HID bus (winebus.sys, which reads hidraw nodes
# through udev) over uhid panels, in a virtual machine. Manual, not a CI stage (see docs/building.md
# for the figures): a run takes a few minutes of QEMU without KVM.
#
# Boots Debian's kernel under QEMU (TCG) with the host's root filesystem shared read-only over 9p and
# chroots into it, so Wine and every library come from the host unchanged; /tmp and /run are tmpfs,
# and the Wine prefix (made once on the host, with the SDL bus off so that winebus takes the udev
# bus) is an overlay with a tmpfs upper layer. systemd-udevd runs from Debian's udev package.
#
# Each argument (default: tests/wine) is a two-sided file or a folder of them (*.wine). Every line
# of one is `board COMMAND`, `plugin COMMAND` or `within SECONDS SIDE COMMAND`, COMMAND being a line
# of dravsim's scenario language:
# - board: a Linux `dravsim --hid uhid --interactive` that never boots a plug-in: it plugs the
#   uhid panels, sends their input reports, fakes their faults and checks what reached them;
# - plugin: the Windows `dravsim.exe --hid platform --interactive` under Wine: the plug-in on the
#   Win32 backend, meeting the board's panels through Wine's HID bus. It starts at its first line,
#   so that the panels plugged before that are there when Wine's bus enumerates;
# - within: the command must be over within SECONDS (a stop with stalled writes, say).
# `ini`, `file` and other block commands take the lines that follow up to `end` unprefixed. Each
# line is over (its side printed what it had to) before the next is sent.
#
# KERNEL_PACKAGE names another kernel package; WINE_HID_TIMEOUT bounds the boot and run in seconds
# (default 600).
set -euo pipefail
cd "$(dirname "$0")/.."
root="$PWD"
work="$root/build/wine-hid"
marker="DRAV-WINE-HID-STATUS"

# ---- inside the virtual machine, chrooted into the host's root ----------------------------------
sync_count=0
# Sends one command (and the block lines that follow it) to a side, then an echo, and waits for the
# echo in that side's output: then everything the command printed is there.
send() {
  local side="$1" limit="$2"; shift 2
  local fd; fd=$([ "$side" = board ] && echo 3 || echo 4)
  local started; started=$(date +%s%N)
  kill -0 "$(cat "/tmp/$side.pid")" 2>/dev/null || { echo "wine-hid: the $side side is gone before '$1'"; return 1; }
  printf '%s\n' "$@" >&"$fd"
  sync_count=$((sync_count + 1))
  echo "echo @@sync $sync_count" >&"$fd"
  local deadline=$(( $(date +%s) + 240 ))
  until tr -d '\r' <"/tmp/$side.out" | grep -qx "@@sync $sync_count"; do  # Wine writes CR LF
    if [ "$(date +%s)" -ge "$deadline" ] || ! kill -0 "$(cat "/tmp/$side.pid")" 2>/dev/null; then
      echo "wine-hid: the $side side did not answer '$1'; it printed:"
      tr -d '\r' <"/tmp/$side.out" | tail -n 20 | sed "s/^/  $side| /"
      return 1
    fi
    sleep 0.1
  done
  local ms=$(( ($(date +%s%N) - started) / 1000000 ))
  echo "  [$side] $1  ($ms ms)"
  if [ -n "$limit" ] && [ "$ms" -gt $((limit * 1000)) ]; then
    echo "wine-hid: FAIL '$1' took $ms ms, more than $limit s"; failures=$((failures + 1))
  fi
}

start_board() {
  mkfifo /tmp/board.in
  build/default/dravsim --hid uhid --interactive </tmp/board.in >/tmp/board.out 2>&1 &
  echo $! >/tmp/board.pid
  exec 3>/tmp/board.in
}

start_plugin() {
  local began; began=$(date +%s)
  mkfifo /tmp/plugin.in
  # Run from tmpfs: mapped straight from the 9p share, the image dies at once with a stack overflow.
  mkdir -p /tmp/win && cp build/windows/dravsim.exe build/windows/XPLM_64.DLL /tmp/win/
  wine64 /tmp/win/dravsim.exe --hid platform --interactive </tmp/plugin.in >/tmp/plugin.out 2>&1 &
  echo $! >/tmp/plugin.pid
  exec 4>/tmp/plugin.in
  plugin_started=1
  send plugin "" "echo the plug-in side is up"
  echo "  Wine and dravsim.exe started in $(( $(date +%s) - began )) s"
}

# One two-sided file, with a fresh board and a fresh Windows dravsim.
run_pair() {
  local file="$1" line side limit block=() in_block=0
  failures=0 plugin_started=0
  rm -f /tmp/board.* /tmp/plugin.*
  echo "== $file"
  start_board
  send_block() {
    [ ${#block[@]} -gt 0 ] || return 0
    [ "$side" = plugin ] && [ "$plugin_started" = 0 ] && start_plugin
    send "$side" "$limit" "${block[@]}" || failures=$((failures + 1))
    block=()
  }
  while IFS= read -r line || [ -n "$line" ]; do
    if [ "$in_block" = 1 ]; then
      block+=("$line")
      if [ "$line" = end ]; then in_block=0; send_block; fi
      continue
    fi
    case "$line" in ''|'#'*) continue ;; esac
    limit=""
    if [[ "$line" =~ ^within\ ([0-9]+)\ (.*)$ ]]; then limit="${BASH_REMATCH[1]}"; line="${BASH_REMATCH[2]}"; fi
    side="${line%% *}"; line="${line#* }"
    case "$side" in board|plugin) ;; *) echo "wine-hid: $file: no side in '$side $line'"; failures=$((failures + 1)); continue ;; esac
    block=("$line")
    case "$line" in ini|'file '*|'expect events'|'expect file '*) in_block=1; continue ;; esac
    send_block
  done <"$file"
  exec 3>&- 4>&- || true
  for s in board plugin; do
    [ -f /tmp/$s.pid ] || continue
    local pid; pid=$(cat /tmp/$s.pid)
    for _ in $(seq 1 300); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
    # What the side printed, its closing line last: FAIL and ERROR lines say what went wrong.
    grep -v '@@sync\|^  echo ' /tmp/$s.out | tr -d '\r' | sed "s/^/  $s| /"
    local closing; closing=$(tr -d '\r' </tmp/$s.out | grep -E '^[0-9]+ passed, [0-9]+ failed' | tail -n1)
    case "$closing" in *" 0 failed"*) ;; *) failures=$((failures + 1)) ;; esac
  done
  wineserver -k 2>/dev/null || true
  echo "== $file: $([ "$failures" = 0 ] && echo passed || echo "FAILED ($failures)")"
  [ "$failures" = 0 ]
}

if [ "${1-}" = --inside ]; then
  shift
  trap '' PIPE  # a side that died is reported, not the death of this script
  set +e  # one file's failure is reported, and the next file still runs
  export PATH=/usr/lib/wine:$PATH HOME=/tmp WINEPREFIX=/tmp/prefix WINEDEBUG=-all
  export WINEDLLOVERRIDES=mscoree,mshtml= DISPLAY=
  mkdir -p /tmp/prefix /tmp/prefix-upper /tmp/prefix-work
  mount -t overlay overlay -o "lowerdir=$work/prefix,upperdir=/tmp/prefix-upper,workdir=/tmp/prefix-work" /tmp/prefix
  bash -c "exec -a systemd-udevd $work/udev/bin/udevadm --daemon" >/dev/null 2>&1
  udev_at=$(cut -d' ' -f1 /proc/uptime)
  echo "wine-hid: chroot and udevd ready at $udev_at s after boot"
  status=0 passed=0 failed=0
  for file in "$@"; do
    if run_pair "$file"; then passed=$((passed + 1)); else failed=$((failed + 1)); status=1; fi
  done
  echo "$marker $status $passed files passed, $failed failed"
  exit 0
fi

# ---- on the host ----------------------------------------------------------------------------------
./scripts/deps.sh qemu-system-x86 busybox-static cpio kmod wine64 g++-mingw-w64-x86-64-posix googletest
mkdir -p "$work"
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache); fi
cmake --preset default "${launcher[@]}" >/dev/null
nice -n 5 cmake --build build/default --target dravsim -j2 >/dev/null
cmake --preset windows "${launcher[@]}" >/dev/null
nice -n 5 cmake --build build/windows --target dravsim -j2 >/dev/null

script=test-wine-hid
source scripts/lib/vm-kernel.sh
fetch_kernel_and_udev

# The prefix, made natively (under TCG wineboot takes well over a minute). Without SDL (not
# installed here) winebus 8 takes its udev bus only when the SDL bus is switched off.
if [ ! -f "$work/prefix/system.reg" ]; then
  env -u DISPLAY -u WAYLAND_DISPLAY WINEPREFIX="$work/prefix" WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= \
    nice -n 5 wine64 wineboot --init >/dev/null 2>&1
  env -u DISPLAY -u WAYLAND_DISPLAY WINEPREFIX="$work/prefix" WINEDEBUG=-all \
    wine64 reg add 'HKLM\System\CurrentControlSet\Services\winebus' /v 'Enable SDL' /t REG_DWORD /d 0 /f >/dev/null 2>&1
  WINEPREFIX="$work/prefix" wineserver -w
fi

[ $# -gt 0 ] || set -- tests/wine
files=()
for arg in "$@"; do
  if [ -d "$arg" ]; then
    while IFS= read -r f; do files+=("$(realpath --relative-to="$root" "$f")"); done < <(find "$arg" -name '*.wine' | sort)
  else
    files+=("$(realpath --relative-to="$root" "$arg")")
  fi
done

image="$work/image"
rm -rf "$image"
mkdir -p "$image"/{bin,dev,proc,sys,modules,host}
cp /bin/busybox "$image/bin/busybox"
for m in hid uhid hid-generic virtio_pci 9pnet_virtio 9p overlay; do add_module "$m"; done
{
  echo '#!/bin/busybox sh'
  echo '/bin/busybox --install -s /bin'
  echo 'mount -t proc proc /proc; mount -t sysfs sysfs /sys; mount -t devtmpfs dev /dev'
  for m in "${modules[@]}"; do echo "insmod /modules/$m"; done
  echo 'mount -t 9p -o trans=virtio,version=9p2000.L,ro,msize=262144,cache=loose hostroot /host'
  echo 'for d in proc sys dev; do mount --bind /$d /host/$d; done'
  echo 'mount -t tmpfs tmp /host/tmp; mount -t tmpfs run /host/run'
  echo "chroot /host /bin/bash -c 'cd $root && exec scripts/test-wine-hid.sh --inside ${files[*]}' || echo '$marker 1 the chroot failed'"
  echo 'poweroff -f'
} >"$image/init"
chmod +x "$image/init"
(cd "$image" && find . | cpio -o -H newc --quiet | gzip -1) >"$work/initramfs.gz"

console="$work/console.txt"
started=$(date +%s)
timeout "${WINE_HID_TIMEOUT:-600}" nice -n 5 qemu-system-x86_64 -accel tcg -m 2048 -smp 1 -nographic -no-reboot \
  -kernel "$vmlinuz" -initrd "$work/initramfs.gz" \
  -virtfs local,path=/,mount_tag=hostroot,security_model=none,readonly=on,multidevs=remap \
  -append "console=ttyS0 quiet loglevel=3 panic=-1" </dev/null >"$console" 2>&1 || true
tr -d '\r' <"$console" | sed -n '/wine-hid: chroot/,$p' | grep -v "^$marker" || true
result=$(tr -d '\r' <"$console" | grep -a "^$marker" | tail -n1 || true)
echo "test-wine-hid: $(( $(date +%s) - started )) s in the virtual machine"
if [ -z "$result" ]; then
  echo "test-wine-hid: the virtual machine gave no result (see $console)"
  exit 1
fi
read -r _ status closing <<<"$result"
echo "$closing"
exit "$status"
