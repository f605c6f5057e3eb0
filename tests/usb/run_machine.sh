#!/usr/bin/env bash
# Boots a kernel in a virtual machine that has the host's root file system to read, and runs a
# command there; its exit status is this script's: run_machine.sh KERNEL_FOLDER COMMAND [ARGUMENT...]
# No argument may contain blanks or commas. KLV_MACHINE_OPTIONS goes to the machine.
set -euo pipefail
kernel=$1
shift
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

root=$work/root
mkdir -p "$root"/{bin,proc,sys,dev,memory,lower,host}
cp /bin/busybox "$root/bin/"
for applet in $(/bin/busybox --list); do
    [[ $applet == busybox ]] || ln -s busybox "$root/bin/$applet"
done
# The kernel itself asks for modules, by this name.
ln -s bin "$root/sbin"
cp -r "$kernel/lib" "$root/"
install -m 755 "$here/init" "$root/init"
(cd "$root" && find . | cpio -o -H newc -R 0:0 --quiet) >"$work/initramfs"

accelerator=tcg
# A /dev/kvm without a processor that supports it is a software one, which is slower.
if grep -qwE 'vmx|svm' /proc/cpuinfo && [[ -w /dev/kvm ]]; then
    accelerator=kvm
fi
read -ra options <<<"${KLV_MACHINE_OPTIONS:-}"
jobs=$(IFS=,; echo "$*")
# A clock that has its frequency from the machine: measured by a kernel on a busy host it may be
# wrong many times over.
clock="clocksource=hpet tsc=unstable noapictimer no_timer_check"
# Without the string instructions for bytes, which the emulation carries out one byte at a time.
processor=max,erms=off,fsrm=off
status=0
timeout --foreground "${KLV_MACHINE_SECONDS:-1500}" qemu-system-x86_64 \
    -machine pc,accel="$accelerator" -cpu "$processor" -smp 1 -m 640 \
    -nodefaults -no-user-config -no-reboot -display none -serial stdio \
    -device isa-debug-exit,iobase=0x501,iosize=1 \
    -fsdev local,id=host,path=/,security_model=none,readonly=on,multidevs=remap \
    -device virtio-9p-pci,fsdev=host,mount_tag=host \
    "${options[@]}" -kernel "$kernel/vmlinux" -initrd "$work/initramfs" \
    -append "console=ttyS0 quiet loglevel=3 panic=-1 mitigations=off init_on_alloc=0 $clock jobs=$jobs" \
    </dev/null || status=$?
# Twice the jobs' status and one; even after a crash, or when time is out.
if ((status % 2 == 0)); then
    echo "The virtual machine ended with $status." >&2
    exit 125
fi
exit $((status / 2))
