#!/usr/bin/env bash
# Runs in the virtual machine, in the host's root: two instruments on USB, then every test with
# them, or the one that is named: jobs.sh SOURCE BUILD [library|pyvisa|panel|bench [FUNCTION...]]
set -uo pipefail
source=$1
tests=$2/tests
export QT_QPA_PLATFORM=offscreen HOME=/tmp/home XDG_RUNTIME_DIR=/tmp/runtime
export XDG_CONFIG_HOME=/tmp/config
# Or udevadm does nothing here.
export SYSTEMD_IGNORE_CHROOT=1
umask 077
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" "$XDG_CONFIG_HOME" /run/udev/rules.d

# plug_in NUMBER MODEL SERIAL [interrupt]
plug_in() {
    local gadget=/sys/kernel/config/usb_gadget/g$1 function=/tmp/function$1
    mkdir -p "$gadget"/strings/0x409 "$gadget"/configs/c.1 "$gadget/functions/ffs.tmc$1" "$function"
    echo 0x5645 >"$gadget/idVendor"
    echo 0x0040 >"$gadget/idProduct"
    echo 0x0200 >"$gadget/bcdUSB"
    echo Veltro >"$gadget/strings/0x409/manufacturer"
    echo "$2" >"$gadget/strings/0x409/product"
    echo "$3" >"$gadget/strings/0x409/serialnumber"
    ln -s "$gadget/functions/ffs.tmc$1" "$gadget/configs/c.1/"
    mount -t functionfs "tmc$1" "$function"
    printf '[%s]\nmodel=%s\n' "$3" "$2" >"/tmp/instrument$1.ini"
    "$tests/klv_usb_gadget" "$function" "$gadget" "dummy_udc.$1" "/tmp/gadget$1" \
        "/tmp/instrument$1.ini" ${4:+"$4"} &
}

cp "$source/packaging/70-klv.rules" /run/udev/rules.d/
/lib/systemd/systemd-udevd --daemon
# One after the other: the nodes have their numbers in this order.
plug_in 0 KLV-20G 20215678
udevadm wait --timeout=60 /dev/usbtmc0
plug_in 1 KLV-6G 1111 interrupt
udevadm wait --timeout=60 /dev/usbtmc1
echo "machine: instruments after $(cut -d' ' -f1 /proc/uptime) s"

failed=0
run() {
    echo "== ${1##*/}, after $(cut -d' ' -f1 /proc/uptime) s"
    "$@" || failed=1
}
names=(library pyvisa panel)
functions=()
if (($# > 2)); then
    names=("$3")
    functions=("${@:4}")
fi
for name in "${names[@]}"; do
    case $name in
        pyvisa)
            run /usr/bin/python3 "$source/tests/usb/usb_pyvisa_test.py" "$2/usbtmc/libVeVISA32.so" ;;
        bench) run "$tests/usb_bench" ;;
        *) run "$tests/usb_${name}_test" "${functions[@]}" ;;
    esac
done
echo "machine: over after $(cut -d' ' -f1 /proc/uptime) s"
exit $failed
