#!/usr/bin/env bash
# Kernel stage: runs scenarios with the plug-in on the hidraw backend against Linux's own HID core.
# Boots Debian's kernel once under QEMU (TCG, no KVM needed) from an initramfs holding busybox, the
# hid, uhid and hid-generic modules, dravsim with its shared libraries and the scenario files; runs
# `dravsim --hid uhid` over them there and hands its closing line and exit status back through the
# serial console. Arguments: scenario files or folders (default tests/scenarios).
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

# ---- the kernel ---------------------------------------------------------------------------------
package="${KERNEL_PACKAGE:-$(apt-cache depends linux-image-amd64 | awk '/Depends: linux-image-/ {print $2; exit}')}"
[ -n "$package" ] || { echo "test-kernel: no kernel package found"; exit 1; }
kernel_root="$work/$package"
if [ ! -d "$kernel_root/boot" ]; then
  (cd "$work" && rm -f "$package"_*.deb && apt-get download "$package" >/dev/null 2>&1)
  dpkg-deb -x "$work/$package"_*.deb "$kernel_root"
fi
vmlinuz=$(ls "$kernel_root"/boot/vmlinuz-*)
moddir=$(ls -d "$kernel_root"/lib/modules/*)

# ---- the initramfs ------------------------------------------------------------------------------
image="$work/image"
rm -rf "$image"
mkdir -p "$image"/{bin,dev,proc,sys,tmp,modules,run}
cp /bin/busybox "$image/bin/busybox"

# Modules in load order: each one's dependencies first.
modules=()
add_module() {
  local name="$1" file dep
  file=$(find "$moddir" -name "$name.ko*" | head -n1)
  [ -n "$file" ] || { echo "test-kernel: module $name missing from $package"; exit 1; }
  for dep in $(modinfo -F depends "$file" | tr ',' ' '); do add_module "$dep"; done
  case " ${modules[*]-} " in *" $(basename "$file") "*) return ;; esac
  cp "$file" "$image/modules/"
  modules+=("$(basename "$file")")
}
for m in hid uhid hid-generic; do add_module "$m"; done

# dravsim and the shared libraries it loads, at the same paths.
mkdir -p "$image/drav"
cp build/default/dravsim "$image/bin/dravsim"
for lib in $(ldd build/default/dravsim | grep -o '/[^ ]*'); do
  mkdir -p "$image$(dirname "$lib")"
  cp -L "$lib" "$image$lib"
done

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
  echo "echo \"$marker \$status \$(tail -n1 /tmp/out.txt)\""
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
