#!/usr/bin/env bash
# Fetches Debian's kernel package and unpacks what the virtual machine needs of it into the user's
# cache folder: vmlinux and modules/. Prints that folder. Ends with 77 where the package cannot be
# had.
set -euo pipefail

absent() {
    echo "$1" >&2
    exit 77
}

[[ $(dpkg --print-architecture) == amd64 ]] || absent "The virtual machine is an amd64 one."
caches=${XDG_CACHE_HOME:-$HOME/.cache}/klv
name=$(apt-cache depends linux-image-amd64 2>/dev/null |
    sed -n 's/^ *Depends: \(linux-image-[0-9].*\)$/\1/p')
if [[ -n $name ]]; then
    version=$(apt-cache policy "$name" | sed -n 's/^ *Candidate: //p')
    cache=$caches/kernel-$version
else
    # Without lists of packages: what was fetched before.
    for vmlinux in "$caches"/kernel-*/vmlinux; do cache=${vmlinux%/*}; done
fi
if [[ -e $cache/vmlinux ]]; then
    echo "$cache"
    exit 0
fi
[[ -n $name ]] || absent "No linux-image-amd64 in the package lists (apt-get update fetches them)."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$work" && apt-get download "$name" >&2) || absent "The package $name could not be downloaded."
# Only what is needed leaves the package, which unpacks to 390 MB.
dpkg-deb --fsys-tarfile "$work"/*.deb | tar -x -C "$work" --wildcards './boot/vmlinuz-*' \
    './lib/modules/*/modules.*' './lib/modules/*/kernel/drivers/usb/*' \
    './lib/modules/*/kernel/drivers/virtio/*' './lib/modules/*/kernel/net/9p/*' \
    './lib/modules/*/kernel/fs/*'
# The uncompressed kernel starts at once; its own decompression takes seconds without KVM.
/usr/bin/python3 - "$work"/boot/vmlinuz-* "$work/vmlinux" <<'PY'
import lzma
import re
import sys

packed = open(sys.argv[1], "rb").read()
for match in re.finditer(b"\xfd7zXZ\x00", packed):
    try:
        kernel = lzma.LZMADecompressor().decompress(packed[match.start():])
    except lzma.LZMAError:
        continue
    if kernel[:4] == b"\x7fELF":
        open(sys.argv[2], "wb").write(kernel)
        sys.exit(0)
sys.exit("no kernel inside " + sys.argv[1])
PY

# The modules that are wanted, with what they need, under the kernel's own version.
modules="usbtmc dummy_hcd libcomposite usb_f_fs virtio_pci 9pnet_virtio 9p overlay"
release=$(ls "$work/lib/modules")
all=$work/lib/modules/$release
PATH=$PATH:/sbin:/usr/sbin
depmod -b "$work" "$release"
mkdir -p "$cache"
for module in $modules; do
    grep -E "(^|/)${module//[-_]/[-_]}\.ko:" "$all/modules.dep" | tr -d ':' | tr ' ' '\n'
done | sort -u | while read -r file; do
    install -D -m 644 "$all/$file" "$cache/lib/modules/$release/$file"
done
cp "$all"/modules.{order,builtin,builtin.modinfo} "$cache/lib/modules/$release/"
depmod -b "$cache" "$release"
# Last: it says that the folder is complete.
mv "$work/vmlinux" "$cache/vmlinux"
echo "$cache"
