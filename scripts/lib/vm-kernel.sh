# Sourced by the scripts that boot Debian's kernel under QEMU (test-kernel.sh, test-wine-hid.sh).
# Needs $work (a folder the downloads are kept in between runs) and $script (the caller's name,
# for its messages).

# Unpacks the kernel package (KERNEL_PACKAGE, or the one linux-image-amd64 depends on) and udev
# once; sets $package, $vmlinuz, $moddir and $udev_root.
fetch_kernel_and_udev() {
  package="${KERNEL_PACKAGE:-$(apt-cache depends linux-image-amd64 | awk '/Depends: linux-image-/ {print $2; exit}')}"
  [ -n "$package" ] || { echo "$script: no kernel package found"; exit 1; }
  local kernel_root="$work/$package"
  if [ ! -d "$kernel_root/boot" ]; then
    (cd "$work" && rm -f "$package"_*.deb && apt-get download "$package" >/dev/null 2>&1)
    dpkg-deb -x "$work/$package"_*.deb "$kernel_root"
  fi
  vmlinuz=$(ls "$kernel_root"/boot/vmlinuz-*)
  moddir=$(ls -d "$kernel_root"/lib/modules/*)
  # udev's daemon is udevadm under another name.
  udev_root="$work/udev"
  if [ ! -x "$udev_root/bin/udevadm" ]; then
    (cd "$work" && rm -f udev_*.deb && apt-get download udev >/dev/null 2>&1)
    dpkg-deb -x "$work"/udev_*.deb "$udev_root"
  fi
}

# Copies a module and, first, the modules it depends on into $image/modules, each once; $modules
# lists them in load order.
modules=()
add_module() {
  local name="$1" file dep
  file=$(find "$moddir" -name "$name.ko*" | head -n1)
  [ -n "$file" ] || { echo "$script: module $name missing from $package"; exit 1; }
  for dep in $(modinfo -F depends "$file" | tr ',' ' '); do add_module "$dep"; done
  case " ${modules[*]-} " in *" $(basename "$file") "*) return ;; esac
  cp "$file" "$image/modules/"
  modules+=("$(basename "$file")")
}
