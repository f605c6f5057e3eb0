#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running need; only what is missing.
#   --dev      also what format.sh, tidy.sh and docs/manual/pictures.sh need
#   --fuzz     also the compiler of tools/fuzz.sh
#   --screen   also the virtual screen that run.sh uses where there is none
#   --wayland  also Qt's platform for a display that has no X
#   --windows  also what the Windows build needs: MinGW-w64, Qt's source package's tools, Wine,
#              icons and the installer
#   --package  also what the Debian package needs
#   --usb      also the virtual machine of test-usb.sh
set -euo pipefail

packages=(
    cmake ninja-build g++ pkg-config
    qtbase5-dev qttools5-dev qttools5-dev-tools libqwt-qt5-dev
    libudev-dev libumockdev-dev umockdev
    desktop-file-utils appstream man-db
    python3-pyvisa xvfb librsvg2-bin fonts-dejavu-core cmark-gfm
)
for option in "$@"; do
    case "$option" in
        --dev) packages+=(clang-format clang-tidy pngquant) ;;
        --fuzz) packages+=(clang libclang-rt-dev) ;;
        --screen) packages+=(tigervnc-standalone-server xauth util-linux) ;;
        --wayland) packages+=(qtwayland5) ;;
        --windows)
            packages+=(
                g++-mingw-w64-x86-64-posix dpkg-dev make perl python3 fp-utils wine64 wine
                icoutils nsis xauth xdotool
                libgl1 libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2
                libxrender1 libxxf86vm1
            ) ;;
        --package) packages+=(dpkg-dev file) ;;
        --usb) packages+=(qemu-system-x86 busybox-static cpio kmod udev) ;;
        *)
            echo "usage: $0 [--dev] [--fuzz] [--screen] [--wayland] [--windows] [--package] [--usb]" >&2
            exit 2 ;;
    esac
done

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [[ $status == "install ok installed" ]] || missing+=("$package")
done
((${#missing[@]})) || exit 0

echo "Installing: ${missing[*]}"
as_root=(env DEBIAN_FRONTEND=noninteractive)
if ((EUID != 0)); then
    command -v sudo >/dev/null || { echo "Install them as root, or install sudo." >&2; exit 1; }
    as_root=(sudo "${as_root[@]}")
fi
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -qy --no-install-recommends "${missing[@]}" </dev/null
