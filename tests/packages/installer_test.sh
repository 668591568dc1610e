#!/usr/bin/env bash
# From the installer to a printed receipt, and back to a machine as it was before: installs without any
# window, plays the sale with what is there, installs again over changed settings, and uninstalls.
# usage: installer_test.sh PACKAGES FOLDER ADDRESS WINEPREFIX LAUNCHER
set -euo pipefail
. "$(dirname "$0")/common.sh"
setup=$(one "$1"/tolvex-*-win-x64-setup.exe)
zip=$(one "$1"/tolvex-*-win-x64.zip)
folder=$(realpath -m "$2") address=$3 launcher=$5
export WINEPREFIX=$4
# Wine would put the start menu's entries into the menu of the desktop it runs on.
export WINEDLLOVERRIDES=winemenubuilder.exe=d
rm -rf "$folder"
mkdir -p "$folder"
drive=$WINEPREFIX/drive_c
programs="$drive/Program Files/tolvex"
menu="$drive/ProgramData/Microsoft/Windows/Start Menu/Programs"

# What the machine holds: all files, and the registry below the keys that installers write to.
files() { (cd "$drive" && find . -path ./windows/temp -prune -o -path '*/Temp/*' -prune -o -print | sort); }
registry() {
  local key
  for key in 'HKLM\Software' 'HKCU\Software' 'HKLM\System\CurrentControlSet\Control\Session Manager\Environment'; do
    "$launcher" reg export "$key" "$folder/key.reg" /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$folder/key.reg" | tr -d '\r'
  done
}
value() { "$launcher" reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -nE "s/^ +$2 +REG_[A-Z_]+ +//p" || true; }
install() { "$launcher" "$setup" /S "$@" || failed "the installer ended with $?"; }
# The uninstaller goes on as a copy of itself, so that it can take itself away.
uninstall() {
  local _
  "$launcher" "$1/uninstall.exe" /S || failed "the uninstaller ended with $?"
  for _ in $(seq 300); do
    [ -e "$1/uninstall.exe" ] || return 0
    sleep 0.1
  done
  failed "the uninstaller did not come to its end"
}

files >"$folder/files-before"
registry >"$folder/registry-before"

# Everything of the zip is there, with the settings and the folder of the log.
install
unzip -q "$zip" -d "$folder"
equals "what is installed beside the zip's files" "Only in ./bin: zelkad_ip_config.ini
Only in ./config: installed
Only in .: uninstall.exe" \
  "$(cd "$programs" && diff -r "$folder/$(basename "$zip" .zip)" . | LC_ALL=C sort)"
cmp "$programs/config/zelkad_ip_config.ini" "$programs/bin/zelkad_ip_config.ini"
cmp "$programs/config/NLog.ini" "$drive/VARN/Log/NLog.ini"
equals "the start menu" "Command prompt.lnk Documentation.lnk Simulator.lnk Uninstall.lnk" "$(cd "$menu/tolvex" && echo *)"
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\tolvex'
equals "the name among the programs" "tolvex 3.0.3 (x64)" "$(value "$uninstall_key" DisplayName)"
equals "how to uninstall quietly" '"C:\Program Files\tolvex\uninstall.exe" /S' "$(value "$uninstall_key" QuietUninstallString)"

# The sale, with the example built against what is installed.
example=$folder/checkout
cp -r "$programs/examples/c/checkout" "$example"
chmod +x "$example/play" # which Windows knows nothing of
(cd "$example" && x86_64-w64-mingw32-windres checkout.rc -O coff -o manifest.o)
x86_64-w64-mingw32-gcc -I "$programs/include" "$example"/{checkout.c,receipt.c,scale.c,manifest.o} \
  -L "$programs/lib" -ltolvex_dll -o "$folder/checkout.exe"
bash "$checkout_test" "$example/play" "$folder/sale" "$address" \
  "$programs/bin/zelkad-sim.exe" "$folder/checkout.exe" "$programs/bin/tolvex_dll.dll" "$launcher"
[ -s "$drive/VARN/Log/DLL_0.log" ] || failed "the library wrote no log"

tool_weighs "$folder" "$address" "$programs/bin/zelkad-sim.exe" "$programs/bin/tolvexctl.exe" "$launcher"

# An update leaves the settings as the user has them, whether changed or not, and what is not its own.
printf '[zelkad]\r\nip_addr=127.73.1.9\r\n' >"$folder/changed.ini"
cp "$folder/changed.ini" "$programs/bin/zelkad_ip_config.ini"
echo "till" >"$programs/bin/till.txt"
rm "$programs/docs/zelkad-sim.md"
install
cmp "$folder/changed.ini" "$programs/bin/zelkad_ip_config.ini" || failed "the update changed the settings"
cmp "$programs/config/NLog.ini" "$drive/VARN/Log/NLog.ini"
[ -s "$drive/VARN/Log/DLL_0.log" ] || failed "the update took the log away"
[ -f "$programs/docs/zelkad-sim.md" ] || failed "the update did not mend what was missing"

# Uninstalling leaves the changed settings, the log's folder and what is not its own; all else goes.
uninstall "$programs"
equals "what is left" "./Program Files/tolvex
./Program Files/tolvex/bin
./Program Files/tolvex/bin/till.txt
./Program Files/tolvex/bin/zelkad_ip_config.ini
./VARN
./VARN/Log
./VARN/Log/DLL_0.log
./VARN/Log/prt_0.bmp" "$(diff "$folder/files-before" <(files) | sed -n 's/^> //p')"
cmp "$folder/changed.ini" "$programs/bin/zelkad_ip_config.ini"
rm -r "$programs" "$drive/VARN"

# Elsewhere, and on the PATH: nothing at all is left when nothing was changed.
path_key='HKLM\System\CurrentControlSet\Control\Session Manager\Environment'
path=$(value "$path_key" Path)
# Without blanks: from here it would come to the installer in quotes, which it takes for part of the name.
install /PATH '/D=C:\Tools\tolvex'
equals "the PATH" "$path;C:\\Tools\\tolvex\\bin" "$(value "$path_key" Path)"
"$launcher" cmd /c tolvexctl --version >"$folder/version" || failed "tolvexctl is not found on the PATH"
equals "the version of tolvexctl" "tolvexctl 3.0.3.2" "$(tr -d '\r' <"$folder/version")"
install
equals "the folder of an update" 'C:\Tools\tolvex' "$(value 'HKLM\Software\tolvex' Folder)"
uninstall "$drive/Tools/tolvex"
rmdir "$drive/Tools"
equals "the files" "$(cat "$folder/files-before")" "$(files)"
equals "the registry" "$(cat "$folder/registry-before")" "$(registry)"
echo "the installer serves from nothing to a receipt, and leaves nothing"
