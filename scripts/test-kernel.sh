#!/usr/bin/env bash
# Kernel stage: runs scenarios with the plug-in on the hidraw backend against Linux's own HID core.
# Boots Debian's kernel once under QEMU (TCG, no KVM needed) from an initramfs holding busybox, the
# hid, uhid and hid-generic modules, dravsim with its shared libraries and the scenario files; runs
# `dravsim --hid uhid` over them there and hands its closing line and exit status back through the
# serial console. Arguments: scenario files or folders (default tests/scenarios).
#
# Then the udev rule (dist/70-drav-panels.rules) is proven there with Debian's systemd-udevd: an
# unprivileged user may open a panel's node and not another vendor's, and the plug-in, run as that
# user, opens a panel that arrives after its start (tests/kernel/udev_*.scn).
#
# KERNEL_PACKAGE names another kernel package (default: the one linux-image-amd64 depends on);
# KERNEL_TIMEOUT bounds the boot and run in seconds (default 280).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh qemu-system-x86 busybox-static cpio kmod

root="$PWD"
work="$root/build/kernel"
mkdir -p "$work"

launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache); fi
cmake --preset default "${launcher[@]}" >/dev/null
cmake --build build/default --target dravsim -j2 >/dev/null

# ---- the kernel and udev ------------------------------------------------------------------------
script=test-kernel
source scripts/lib/vm-kernel.sh
fetch_kernel_and_udev

# ---- the initramfs ------------------------------------------------------------------------------
image="$work/image"
rm -rf "$image"
mkdir -p "$image"/{bin,dev,proc,sys,tmp,modules,run}
cp /bin/busybox "$image/bin/busybox"

# Modules in load order: each one's dependencies first.
for m in hid uhid hid-generic; do add_module "$m"; done

# dravsim, udevadm and the shared libraries they load, at the same paths.
mkdir -p "$image/drav" "$image/lib/systemd" "$image/etc/udev/rules.d" "$image/home/pilot"
cp build/default/dravsim "$image/bin/dravsim"
cp "$udev_root/bin/udevadm" "$image/bin/udevadm"
ln -s /bin/udevadm "$image/lib/systemd/systemd-udevd"
cp dist/70-drav-panels.rules "$image/etc/udev/rules.d/"
printf 'root:x:0:0::/root:/bin/sh\npilot:x:1000:1000::/home/pilot:/bin/sh\n' >"$image/etc/passwd"
printf 'root:x:0:\nplugdev:x:46:pilot\npilot:x:1000:\n' >"$image/etc/group"
for binary in build/default/dravsim "$udev_root/bin/udevadm"; do
  for lib in $(ldd "$binary" | grep -o '/[^ ]*'); do
    mkdir -p "$image$(dirname "$lib")"
    cp -L "$lib" "$image$lib"
  done
done
mkdir -p "$image/drav/tests/kernel"
cp tests/kernel/*.scn "$image/drav/tests/kernel/"

# The scenarios, at their paths relative to the checkout so that messages name them alike.
[ $# -gt 0 ] || set -- tests/scenarios
scenarios=()
for arg in "$@"; do
  rel=$(realpath --relative-to="$root" "$arg")
  if [ -d "$arg" ]; then
    while IFS= read -r f; do scenarios+=("$f"); done < <(cd "$root" && find "$rel" -name '*.scn' | sort)
  else
    scenarios+=("$rel")
  fi
done
for f in "${scenarios[@]}"; do
  mkdir -p "$image/drav/$(dirname "$f")"
  cp "$root/$f" "$image/drav/$f"
done

marker="DRAV-KERNEL-STATUS"
{
  echo '#!/bin/busybox sh'
  echo '/bin/busybox --install -s /bin'
  echo 'mount -t proc proc /proc; mount -t sysfs sysfs /sys; mount -t devtmpfs dev /dev; mount -t tmpfs tmp /tmp'
  for m in "${modules[@]}"; do echo "insmod /modules/$m"; done
  echo 'cd /drav'
  echo "dravsim --quiet --hid uhid ${scenarios[*]} > /tmp/out.txt 2>&1"
  echo 'status=$?'
  echo 'cat /tmp/out.txt'
  echo 'result=$(tail -n1 /tmp/out.txt)'
  cat <<'UDEV'
/lib/systemd/systemd-udevd --daemon >/dev/null 2>&1
udevadm settle
chmod 666 /dev/uhid   # the test's own device maker, not what is proven
# Root makes a panel and another vendor's device; the pilot tries to open each node.
(echo 'plug GF-P8 as panel'; echo 'hid-device 0x046D 0xC077 as mouse'; sleep 4) |
  dravsim --quiet --hid uhid --interactive >/dev/null 2>&1 &
sleep 2
udevadm settle
for dev in /sys/class/hidraw/*; do
  node=/dev/${dev##*/}
  owner=$(basename "$(readlink "$dev/device")")
  if su -s /bin/sh pilot -c "test -r $node -a -w $node"; then verdict=open; else verdict=denied; fi
  echo "udev: $owner $verdict by the pilot ($(ls -l "$node" | awk '{print $1, $3, $4}'))"
  case "$owner:$verdict" in
    *:09F3:*:open|*:046D:*:denied) ;;
    *) status=1 ;;
  esac
done
wait
su -s /bin/sh pilot -c 'dravsim --quiet --hid uhid tests/kernel/udev_*.scn' >/tmp/udev.txt 2>&1 || status=1
sed 's/^/udev run: /' /tmp/udev.txt
UDEV
  echo "echo \"$marker \$status \$result\""
  echo 'poweroff -f'
} > "$image/init"
chmod +x "$image/init"
(cd "$image" && find . | cpio -o -H newc --quiet | gzip -1) > "$work/initramfs.gz"

# ---- the boot -----------------------------------------------------------------------------------
console="$work/console.txt"
started=$(date +%s)
timeout "${KERNEL_TIMEOUT:-280}" qemu-system-x86_64 -accel tcg -m 1024 -smp 1 -nographic -no-reboot \
  -kernel "$vmlinuz" -initrd "$work/initramfs.gz" \
  -append "console=ttyS0 quiet loglevel=3 panic=-1" </dev/null >"$console" 2>&1 || true
tr -d '\r' <"$console" | grep -v "^$marker" || true
result=$(tr -d '\r' <"$console" | grep "^$marker" | tail -n1 || true)
echo "test-kernel: $(( $(date +%s) - started )) s in the virtual machine"
if [ -z "$result" ]; then
  echo "test-kernel: the virtual machine gave no result (see $console)"
  exit 1
fi
read -r _ status closing <<<"$result"
echo "$closing"
exit "$status"
