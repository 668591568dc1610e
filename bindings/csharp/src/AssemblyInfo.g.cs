// Written by ./run bindings from CMakeLists.txt. Do not edit.
using System.Reflection;
using System.Runtime.CompilerServices;
using System.Runtime.InteropServices;

[assembly: AssemblyTitle("Tolvex")]
[assembly: AssemblyProduct("tolvex")]
[assembly: AssemblyDescription("tolvex, the device adapter library for point-of-sale applications, for .NET")]
// The same for all versions that fit each other, so that an update of .NET Framework applications needs no
// redirection of bindings.
[assembly: AssemblyVersion("3.0.0.0")]
[assembly: AssemblyFileVersion("3.0.3.2")]
[assembly: AssemblyInformationalVersion("3.0.3")]
[assembly: ComVisible(false)]
[assembly: InternalsVisibleTo("Tolvex.Tests")]
