#!/usr/bin/env bash
# The package of the C# binding, laid out as build tools do, serves a program; and it says what it is.
# usage: csharp_package_test.sh BUILD PACKAGES ADDRESS
set -euo pipefail
sources=$(cd "$(dirname "$0")/../../bindings/csharp" && pwd)
build=$(cd "$1" && pwd) packages=$(cd "$2" && pwd) address=$3
folder=$(mktemp -d)
simulator=""
trap '[ -z "$simulator" ] || kill "$simulator"; rm -rf "$folder"' EXIT
unset TOLVEX_LIBRARY
export HOME=$folder/home XDG_STATE_HOME=$folder/home/state
fail() { echo "FAILED: $1" >&2; exit 1; }

package=$(ls "$packages"/Tolvex.*.nupkg)
unzip -q "$package" -d "$folder/package"
cd "$folder"

# What NuGet reads.
first=$(unzip -Z1 "$package" | sed -n 1p)
[ "$first" = "[Content_Types].xml" ] || fail "the package begins with $first"
python3 - "$folder/package" "$package" <<'END'
import pathlib, re, sys
import xml.etree.ElementTree as xml
root = pathlib.Path(sys.argv[1])
types = {e.get("Extension") for e in xml.parse(root / "[Content_Types].xml").getroot()}
for relation in xml.parse(root / "_rels/.rels").getroot():
    assert (root / relation.get("Target").lstrip("/")).is_file(), relation.get("Target")
nuspec = {e.tag.split("}")[1]: e.text for e in xml.parse(root / "Tolvex.nuspec").getroot()[0]}
assert nuspec["id"] == "Tolvex" and f"Tolvex.{nuspec['version']}.nupkg" == pathlib.Path(sys.argv[2]).name, nuspec
assert (root / nuspec["readme"]).is_file()
for file in root.rglob("*"):
    assert file.is_dir() or file.suffix[1:] in types or file.name == ".rels", f"{file} has no type"
for kind in ("build", "buildTransitive"):
    targets = xml.parse(root / kind / "net45/Tolvex.targets").getroot()
    for include in (e.get("Include") for e in targets.iter() if e.get("Include")):
        path = include.replace("$(TolvexRuntimes)", "runtimes\\").replace("\\", "/")
        assert (root / path).is_file(), f"{include} is not in the package"
for name in ("README.md", "THIRD-PARTY-NOTICES-win-x64.txt", "THIRD-PARTY-NOTICES-linux-x64.txt", "examples/checkout/Checkout.cs",
             "runtimes/win-x64/native/tolvex_dll.dll", "runtimes/linux-x64/native/libtolvex_dll.so", "lib/net45/Tolvex.xml"):
    assert (root / name).stat().st_size > 0, name
for link in re.findall(r"\]\(([^)#:]+)\)", (root / "README.md").read_text(encoding="utf-8")):
    assert (root / link).exists(), f"the README links to {link}"
END
cmp package/lib/net45/Tolvex.dll package/lib/netstandard2.0/Tolvex.dll
"$sources/compile" compiled
cmp package/lib/net45/Tolvex.dll compiled/Tolvex.dll || fail "the package's assembly is not the one that compile makes here"

# A program that tells which library it has, and weighs.
cat >till.cs <<END
class Till
{
    static void Main()
    {
        Tolvex.Service.SetServer("$address");
        System.Console.WriteLine(Tolvex.Library.LoadedPath);
        System.Console.WriteLine(new Tolvex.Scale().Read().Net);
    }
}
END
mcs -out:till.exe till.cs -r:package/lib/netstandard2.0/Tolvex.dll
mcs -warnaserror -out:checkout.exe package/examples/checkout/Checkout.cs -r:package/lib/net45/Tolvex.dll
"$build/bin/zelkad-sim" --address "$address" --no-web --quiet --load 0.482 --settling 0 >simulator.log &
simulator=$!
for _ in $(seq 400); do
  ! grep -q ready simulator.log || break
  sleep 0.05
done
grep -q ready simulator.log || fail "the simulator did not begin within 20 s: $(cat simulator.log)"

# expect LIBRARY PROGRAM: the program, run by Mono, has this library and weighs with it.
expect() {
  local said
  said=$(mono "$2" | tail -n 2)
  [ "$said" = "$1"$'\n'0.4820 ] || fail "$2 says $said"
}

# As dotnet build lays it out, then as .NET Framework and dotnet publish do, then with the assembly in the folder of packages.
mkdir -p built/runtimes published program
cp till.exe package/lib/netstandard2.0/Tolvex.dll built/
cp -r package/runtimes/* built/runtimes/
expect "$folder/built/runtimes/linux-x64/native/libtolvex_dll.so" built/till.exe
cp till.exe package/lib/net45/Tolvex.dll package/runtimes/linux-x64/native/libtolvex_dll.so published/
expect "$folder/published/libtolvex_dll.so" published/till.exe
cp till.exe program/
MONO_PATH=$folder/package/lib/net45 expect "$folder/package/runtimes/linux-x64/native/libtolvex_dll.so" program/till.exe

# As a project of .NET Framework builds it, by the package's own targets.
mkdir project
cp till.cs project/
cat >project/till.csproj <<'END'
<Project ToolsVersion="4.0" DefaultTargets="Build" xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
  <PropertyGroup>
    <OutputType>Exe</OutputType>
    <AssemblyName>till</AssemblyName>
    <TargetFrameworkVersion>v4.5</TargetFrameworkVersion>
    <OutputPath>bin\</OutputPath>
  </PropertyGroup>
  <ItemGroup>
    <Reference Include="mscorlib"><HintPath>/usr/lib/mono/4.5/mscorlib.dll</HintPath><Private>False</Private></Reference>
    <Reference Include="Tolvex"><HintPath>..\package\lib\net45\Tolvex.dll</HintPath></Reference>
    <Compile Include="till.cs" />
  </ItemGroup>
  <Import Project="$(MSBuildBinPath)\Microsoft.CSharp.targets" />
  <Import Project="..\package\build\net45\Tolvex.targets" />
</Project>
END
# built OPTION...: builds the project anew; its output is in log
built() {
  rm -rf project/bin project/obj
  xbuild "$@" project/till.csproj >log 2>&1
}
built /p:PlatformTarget=x64 || fail "xbuild: $(cat log)"
! grep TOLVEX00 log || fail "x64 is complained about"
expect "$folder/project/bin/libtolvex_dll.so" project/bin/till.exe
! built /p:PlatformTarget=x86 || fail "x86 is not refused"
grep -q 'error TOLVEX001: tolvex is 64-bit only' log || fail "x86: $(cat log)"
built /p:PlatformTarget=AnyCPU /p:Prefer32Bit=true || fail "xbuild: $(cat log)"
grep -q 'warning TOLVEX002: tolvex is 64-bit only' log || fail "Prefer32Bit: $(cat log)"
built /p:PlatformTarget=AnyCPU /p:Prefer32Bit=false || fail "xbuild: $(cat log)"
! grep TOLVEX00 log || fail "AnyCPU is complained about"
echo "the package serves in each place"
