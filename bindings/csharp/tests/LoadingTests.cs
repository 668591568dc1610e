using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Text;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>Where the library is looked for, and what is told when it is not there.</summary>
    [TestFixture]
    public class LoadingTests
    {
        internal const string PrintLibrary = "--print-library", PrintLoadedTwice = "--load-another";
        private const string Name = "libtolvex_dll.so", Below = "runtimes/linux-x64/native/";

        private string folder;

        [SetUp]
        public void MakeFolder()
        {
            folder = Path.Combine(Path.GetTempPath(), "tolvex-csharp-" + Guid.NewGuid().ToString("N"));
            Directory.CreateDirectory(folder);
        }

        [TearDown]
        public void RemoveFolder()
        {
            Directory.Delete(folder, true);
        }

        // ---- In a process of its own ----

        internal static int PrintLoaded(bool twice)
        {
            try
            {
                Library.Load();
                if (!twice) Console.WriteLine(Library.LoadedPath);
                Library.Load();
                Library.Load(Library.LoadedPath);
                if (twice) Library.Load("/another/" + Name);
                return 0;
            }
            catch (InvalidOperationException e)
            {
                Console.WriteLine(e.Message);
                return 1;
            }
            catch (LibraryNotLoadedException e)
            {
                Console.WriteLine(e.Message);
                return 1;
            }
        }

        // This program below the folder, with the assembly where it is said to be.
        private string Run(string variable, string program = "app", string assembly = "app",
            string option = PrintLibrary)
        {
            Put(typeof(LoadingTests).Assembly.Location, program);
            Put(typeof(Library).Assembly.Location, assembly);
            var start = new ProcessStartInfo("mono", Path.Combine(folder, program, "Tolvex.Tests.exe") + " " + option)
            {
                UseShellExecute = false,
                RedirectStandardOutput = true,
                WorkingDirectory = "/"
            };
            start.EnvironmentVariables.Remove(Library.EnvironmentVariable);
            if (variable != null) start.EnvironmentVariables[Library.EnvironmentVariable] = variable;
            start.EnvironmentVariables["MONO_PATH"] = Path.Combine(folder, assembly);
            using (Process process = Process.Start(start)) return process.StandardOutput.ReadToEnd().Trim();
        }

        private string Put(string file, string below)
        {
            string target = Path.Combine(folder, below, Path.GetFileName(file));
            Directory.CreateDirectory(Path.GetDirectoryName(target));
            File.Copy(file, target, true);
            return target;
        }

        private static string Real
        {
            get { return Simulator.Needed(Library.EnvironmentVariable); }
        }

        [Test]
        public void IsFoundBesideTheApplication()
        {
            string library = Put(Real, "app");
            Assert.AreEqual(library, Run(null));
        }

        [Test]
        public void IsFoundInTheFoldersOfRuntimes()
        {
            Put(Real, "app");
            string library = Put(Real, "app/" + Below);
            Assert.AreEqual(library, Run(null));
        }

        [Test]
        public void IsFoundInTheFolderOfPackages()
        {
            string library = Put(Real, "packages/tolvex/" + Below);
            Assert.AreEqual(library, Run(null, "app", "packages/tolvex/lib/net45"));
        }

        [Test]
        public void IsFoundAmongTheAssembliesOfAnApplicationThatRunsCopies()
        {
            string library = Put(Real, "site/bin");
            var setup = new AppDomainSetup { ApplicationBase = Path.Combine(folder, "site"), PrivateBinPath = "bin" };
            AppDomain site = AppDomain.CreateDomain("site", null, setup);
            try
            {
                CollectionAssert.Contains(LibraryFiles.Candidates(false, Path.Combine(folder, "copies"), site.BaseDirectory,
                    site.RelativeSearchPath, null), library);
            }
            finally
            {
                AppDomain.Unload(site);
            }
        }

        [Test]
        public void OnlyTheVariableCountsIfItIsSet()
        {
            Put(Real, "app");
            Assert.AreEqual(Real, Run(Real));
            string told = Run(Path.Combine(folder, "nothing.so"));
            StringAssert.Contains(Path.Combine(folder, "nothing.so") + ": is missing", told);
            StringAssert.Contains("correct the environment variable TOLVEX_LIBRARY", told);
            StringAssert.DoesNotContain("/app/", told);
            StringAssert.Contains("\": is missing; the path has quotation marks in it", Run("\"" + Real + "\""));
        }

        [Test]
        public void WhatIsNoPathIsMissing()
        {
            Assert.AreEqual("a\0b", LibraryFiles.Absolute("a\0b"));
            Assert.AreEqual("is missing", LibraryFiles.WhatIsWrong("a\0b", false));
            Assert.AreEqual("/x/y", LibraryFiles.Absolute("/x/./y"));
        }

        [Test]
        public void WhatCanNotBeLoadedIsPassedOverAndTold()
        {
            string wrong = Path.Combine(folder, "app", Below, Name);
            Directory.CreateDirectory(Path.GetDirectoryName(wrong));
            File.WriteAllBytes(wrong, Elf(1, 3));
            string told = Run(null);
            StringAssert.Contains(wrong + ": is for 32-bit Linux, needed is 64-bit Linux", told);
            StringAssert.Contains(Path.Combine(folder, "app", Name) + ": is missing", told);
            StringAssert.Contains(Name + ", by the system's own search: " + Name + ": cannot open shared object file", told);
            StringAssert.Contains("This process is 64-bit", told);
            StringAssert.Contains("call Library.Load(path)", told);
            Assert.AreEqual(Put(Real, "app"), Run(null));
        }

        // ---- In this process ----

        private static byte[] Elf(byte bits, byte machine)
        {
            var head = new byte[64];
            new byte[] { 0x7F, (byte)'E', (byte)'L', (byte)'F', bits, 1, 1 }.CopyTo(head, 0);
            head[16] = 3;
            head[18] = machine;
            return head;
        }

        private static byte[] Pe(ushort machine)
        {
            var head = new byte[128];
            head[0] = (byte)'M';
            head[1] = (byte)'Z';
            head[60] = 64;
            head[64] = (byte)'P';
            head[65] = (byte)'E';
            BitConverter.GetBytes(machine).CopyTo(head, 68);
            return head;
        }

        private static byte[] WithoutVersion(byte[] library)
        {
            library[6] = 0;
            return library;
        }

        // The system would read behind the end of such a file, which ends the process.
        [Test]
        public void AFileThatIsCutShortIsTold()
        {
            byte[] whole = File.ReadAllBytes(Real);
            foreach (int size in new[] { 20, 63, 64, 4096, whole.Length / 2, whole.Length - 1 })
            {
                StringAssert.Contains("is cut short: it has " + size + " bytes of at least ", Refused(whole.Take(size).ToArray()));
            }
        }

        private string Refused(byte[] content)
        {
            string file = Path.Combine(folder, Name);
            if (content != null) File.WriteAllBytes(file, content);
            string told = Assert.Throws<LibraryNotLoadedException>(() => Library.Load(file)).Message;
            StringAssert.Contains("\n  " + file + ": ", told);
            StringAssert.Contains("needs the one for 64-bit Linux", told);
            StringAssert.Contains("What to do: correct the path that was given", told);
            return told;
        }

        [Test]
        public void AWrongFileIsToldByItsKind()
        {
            if (Library.IsLoaded) Assert.Fail("another test has loaded the library");
            StringAssert.Contains("is missing", Refused(null));
            StringAssert.Contains("is no library, or damaged", Refused(Encoding.ASCII.GetBytes("just a text\n")));
            StringAssert.Contains("is no library, or damaged", Refused(new byte[0]));
            StringAssert.Contains("is for 32-bit Linux, needed is 64-bit Linux", Refused(Elf(1, 3)));
            StringAssert.Contains("is for Linux on another processor (ELF machine 183)", Refused(Elf(2, 183)));
            StringAssert.Contains("is for 32-bit Windows, needed is 64-bit Linux", Refused(Pe(0x14C)));
            StringAssert.Contains("is for 64-bit Windows, needed is 64-bit Linux", Refused(Pe(0x8664)));
            StringAssert.Contains("is for Windows on another processor (PE machine 0xaa64)", Refused(Pe(0xAA64)));
            StringAssert.Contains(Name + ": ELF file version ident does not match current one", Refused(WithoutVersion(File.ReadAllBytes(Real))));
            StringAssert.Contains("is a folder", Assert.Throws<LibraryNotLoadedException>(() => Library.Load(folder)).Message);
            Assert.Throws<ArgumentException>(() => Library.Load(""));
        }

        [Test]
        public void AnotherLibraryIsToldByWhatItLacks()
        {
            string other = Path.Combine(folder, Name);
            File.Copy("/lib/x86_64-linux-gnu/libm.so.6", other);
            string told = Assert.Throws<LibraryNotLoadedException>(() => Library.Load(other)).Message;
            StringAssert.Contains("lacks 121 functions, such as read_baseinfo", told);
        }

        [Test]
        public void AnotherFileThanTheLoadedOneIsRefused()
        {
            // In a process of its own, because a library that is loaded stays.
            string library = Put(Real, "app");
            Assert.AreEqual(library, Run(null));
            string told = Run(null, "app", "app", PrintLoadedTwice);
            StringAssert.StartsWith("The library is loaded already, from " + library, told);
            StringAssert.Contains("Call Library.Load before everything else.", told);
        }

        [Test]
        public void TheErrorIsThatOfAnyNativeLibrary()
        {
            Assert.IsTrue(typeof(DllNotFoundException).IsAssignableFrom(typeof(LibraryNotLoadedException)));
            StringAssert.Contains("This process is 32-bit", LibraryNotLoadedException.OfThisProcess().Message);
            StringAssert.Contains("Prefer32Bit", LibraryNotLoadedException.OfThisProcess().Message);
        }

        [Test]
        public void PlacesOnWindowsAreLookedAtInTheirOrder()
        {
            IList<string> files = LibraryFiles.Candidates(true, "/p/lib/net45", "/app", "bin", "/unpacked/");
            CollectionAssert.AreEqual(new[]
            {
                "/p/lib/net45/runtimes/win-x64/native/tolvex_dll.dll", "/p/lib/net45/tolvex_dll.dll",
                "/p/runtimes/win-x64/native/tolvex_dll.dll", "/app/runtimes/win-x64/native/tolvex_dll.dll", "/app/tolvex_dll.dll",
                "/app/bin/runtimes/win-x64/native/tolvex_dll.dll", "/app/bin/tolvex_dll.dll",
                "/unpacked/tolvex_dll.dll"
            }, files);
            CollectionAssert.AreEqual(new[] { "/app/runtimes/linux-x64/native/libtolvex_dll.so", "/app/libtolvex_dll.so" },
                LibraryFiles.Candidates(false, null, "/app", null, null));
            string file = Path.Combine(folder, "x.dll");
            File.WriteAllBytes(file, Elf(2, 62));
            Assert.AreEqual("is for 64-bit Linux, needed is 64-bit Windows", LibraryFiles.WhatIsWrong(file, true));
            byte[] library = Pe(0x8664);
            Array.Resize(ref library, 600);
            library[70] = 1; // one section of 100 bytes, at 500
            library[88 + 16] = 100;
            library[88 + 20] = 500 & 0xFF;
            library[88 + 21] = 500 >> 8;
            File.WriteAllBytes(file, library);
            Assert.IsNull(LibraryFiles.WhatIsWrong(file, true));
            File.WriteAllBytes(file, library.Take(599).ToArray());
            Assert.AreEqual("is cut short: it has 599 bytes of at least 600", LibraryFiles.WhatIsWrong(file, true));
            File.WriteAllBytes(file, library.Take(80).ToArray());
            StringAssert.StartsWith("is cut short", LibraryFiles.WhatIsWrong(file, true));
        }
    }
}
