using System;
using System.Collections.Generic;
using System.IO;

namespace Tolvex
{
    /// <summary>Where the library may lie, and what kind of file lies there.</summary>
    internal static class LibraryFiles
    {
        private const int HeadBytes = 4096;

        internal static string Name(bool isWindows)
        {
            return isWindows ? "tolvex_dll.dll" : "libtolvex_dll.so";
        }

        // Beside this assembly, as its package has it and as it lies in the folder of packages; then beside the
        // application and in its folders of assemblies, which a web application has: there this assembly is a copy that
        // lies elsewhere; then where a program that is a single file unpacks its libraries.
        internal static IList<string> Candidates(bool isWindows, string assemblyFolder, string applicationFolder,
            string privateFolders, string searchFolders)
        {
            string name = Name(isWindows);
            string below = Path.Combine("runtimes", isWindows ? "win-x64" : "linux-x64", "native", name);
            var files = new List<string>();
            if (assemblyFolder != null)
            {
                Add(files, assemblyFolder, below);
                Add(files, assemblyFolder, name);
                Add(files, Path.Combine(assemblyFolder, "..", ".."), below);
            }
            if (applicationFolder != null)
            {
                Add(files, applicationFolder, below);
                Add(files, applicationFolder, name);
                foreach (string folder in Folders(privateFolders))
                {
                    Add(files, Path.Combine(applicationFolder, folder), below);
                    Add(files, Path.Combine(applicationFolder, folder), name);
                }
            }
            foreach (string folder in Folders(searchFolders)) Add(files, folder, name);
            return files;
        }

        private static string[] Folders(string list)
        {
            return (list ?? "").Split(new[] { Path.PathSeparator }, StringSplitOptions.RemoveEmptyEntries);
        }

        // As it is where it cannot be a path at all, such as one in quotes on Windows: then it is told as missing.
        internal static string Absolute(string file)
        {
            try
            {
                return Path.GetFullPath(file);
            }
            catch (Exception e) when (e is ArgumentException || e is NotSupportedException || e is IOException)
            {
                return file;
            }
        }

        private static void Add(List<string> files, string folder, string name)
        {
            string file = Path.GetFullPath(Path.Combine(folder, name));
            if (!files.Contains(file)) files.Add(file);
        }

        // Null if the file is of the kind that this process can load.
        internal static string WhatIsWrong(string file, bool isWindows)
        {
            byte[] head;
            long size;
            try
            {
                if (!File.Exists(file))
                {
                    string hint = file.IndexOf('"') >= 0 ? "; the path has quotation marks in it, which do not belong there" : "";
                    return Directory.Exists(file) ? "is a folder" : "is missing" + hint;
                }
                head = Head(file, out size);
            }
            catch (Exception e) when (e is IOException || e is UnauthorizedAccessException)
            {
                return "cannot be read (" + e.Message + ")";
            }
            string kind = Kind(head), needed = isWindows ? "64-bit Windows" : "64-bit Linux";
            if (kind == null) return "is no library, or damaged; needed is one for " + needed + " (x86-64)";
            if (kind != needed) return "is for " + kind + ", needed is " + needed;
            long end = isWindows ? EndOfPe(head) : EndOfElf(head);
            return size >= end ? null : "is cut short: it has " + size + " bytes of at least " + end;
        }

        private static byte[] Head(string file, out long length)
        {
            using (var stream = new FileStream(file, FileMode.Open, FileAccess.Read, FileShare.ReadWrite))
            {
                length = stream.Length;
                var head = new byte[HeadBytes];
                int size = 0, read;
                while (size < HeadBytes && (read = stream.Read(head, size, HeadBytes - size)) > 0) size += read;
                Array.Resize(ref head, size);
                return head;
            }
        }

        // "64-bit Windows", "32-bit Linux", "Linux on another processor (183)" ...; null for what is no library.
        internal static string Kind(byte[] head)
        {
            if (head.Length >= 20 && head[0] == 0x7F && head[1] == 'E' && head[2] == 'L' && head[3] == 'F')
            {
                if (head[4] == 1) return "32-bit Linux";
                if (head[4] != 2) return null;
                int machine = Two(head, 18);
                return machine == 62 ? "64-bit Linux" : "Linux on another processor (ELF machine " + machine + ")";
            }
            if (head.Length >= 64 && head[0] == 'M' && head[1] == 'Z')
            {
                long at = Four(head, 60);
                if (at + 6 > head.Length || head[at] != 'P' || head[at + 1] != 'E') return null;
                int machine = Two(head, (int)at + 4);
                if (machine == 0x8664) return "64-bit Windows";
                if (machine == 0x014C) return "32-bit Windows";
                return "Windows on another processor (PE machine 0x" + machine.ToString("x4") + ")";
            }
            return null;
        }

        // Up to where the head says that there is something. Loading a file that ends earlier would end the process.
        private static long EndOfElf(byte[] head)
        {
            const int segmentBytes = 56;
            if (head.Length < 64) return 64;
            long end = Eight(head, 40) + Two(head, 58) * (long)Two(head, 60), start = Eight(head, 32);
            for (int left = Two(head, 56); left > 0 && start >= 0 && start + segmentBytes <= head.Length; --left)
            {
                end = Math.Max(end, Eight(head, (int)start + 8) + Eight(head, (int)start + 32));
                start += Two(head, 54);
            }
            return end;
        }

        private static long EndOfPe(byte[] head)
        {
            const int sectionBytes = 40;
            int at = (int)Four(head, 60);
            if (at + 24 > head.Length) return head.Length + 1;
            long end = 0;
            int start = at + 24 + Two(head, at + 20);
            for (int left = Two(head, at + 6); left > 0 && start + sectionBytes <= head.Length; --left)
            {
                end = Math.Max(end, Four(head, start + 16) + Four(head, start + 20));
                start += sectionBytes;
            }
            return end;
        }

        private static int Two(byte[] bytes, int at)
        {
            return bytes[at] | (bytes[at + 1] << 8);
        }

        private static long Four(byte[] bytes, int at)
        {
            return (uint)(Two(bytes, at) | (Two(bytes, at + 2) << 16));
        }

        private static long Eight(byte[] bytes, int at)
        {
            return Four(bytes, at) | (Four(bytes, at + 4) << 32);
        }
    }
}
