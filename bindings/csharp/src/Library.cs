using System;
using System.Collections.Generic;
using System.IO;

namespace Tolvex
{
    /// <summary>
    /// The native library: where it is looked for, and which file it is. It is loaded at its first use, or by
    /// <see cref="Load(string)"/>, and never unloaded: its connections last as long as the process.
    /// </summary>
    public static class Library
    {
        /// <summary>The environment variable with the path of the library. If it is set, no other place counts.</summary>
        public const string EnvironmentVariable = "TOLVEX_LIBRARY";

        private static readonly object gate = new object();
        private static volatile string loaded;

        /// <summary>Whether the library is loaded.</summary>
        public static bool IsLoaded
        {
            get { return loaded != null; }
        }

        /// <summary>
        /// The file that was loaded, or null: an absolute path, or the plain name if the system's own search found it.
        /// </summary>
        public static string LoadedPath
        {
            get { return loaded; }
        }

        /// <summary>
        /// Loads the library now instead of at its first use, so that a program learns at its start if it is missing.
        /// </summary>
        /// <param name="path">The file, or null to look for it in the usual places.</param>
        /// <exception cref="LibraryNotLoadedException">There is none that this process can load.</exception>
        /// <exception cref="InvalidOperationException">Another file is loaded already.</exception>
        public static void Load(string path = null)
        {
            if (path != null)
            {
                if (path.Length == 0) throw new ArgumentException("The path of the library is empty.", "path");
                path = Path.GetFullPath(path);
            }
            StringComparison comparison = NativeLoader.IsWindows ? StringComparison.OrdinalIgnoreCase : StringComparison.Ordinal;
            lock (gate)
            {
                if (loaded == null)
                {
                    loaded = Found(path);
                }
                else if (path != null && !string.Equals(path, loaded, comparison))
                {
                    throw new InvalidOperationException("The library is loaded already, from " + loaded +
                        "; it cannot be exchanged for " + path + ". Call Library.Load before everything else.");
                }
            }
        }

        internal static void EnsureLoaded()
        {
            if (loaded == null) Load();
        }

        private static string Found(string path)
        {
            bool isWindows = NativeLoader.IsWindows;
            if (IntPtr.Size != 8) throw LibraryNotLoadedException.OfThisProcess();
            string variable = Environment.GetEnvironmentVariable(EnvironmentVariable);
            string why = null;
            IEnumerable<string> files;
            if (path != null)
            {
                files = new[] { path };
                why = "the path that was given";
            }
            else if (!string.IsNullOrEmpty(variable))
            {
                files = new[] { LibraryFiles.Absolute(variable) };
                why = "the environment variable " + EnvironmentVariable;
            }
            else
            {
                AppDomain domain = AppDomain.CurrentDomain;
                files = LibraryFiles.Candidates(isWindows, AssemblyFolder(), domain.BaseDirectory, domain.RelativeSearchPath,
                    domain.GetData("NATIVE_DLL_SEARCH_DIRECTORIES") as string);
            }

            var tried = new List<string>();
            foreach (string file in files)
            {
                string wrong = LibraryFiles.WhatIsWrong(file, isWindows);
                if (wrong == null && TryLoad(file, out wrong)) return file;
                tried.Add(file + ": " + wrong);
            }
            if (why == null)
            {
                string name = LibraryFiles.Name(isWindows), wrong;
                if (TryLoad(name, out wrong)) return name;
                tried.Add(name + ", by the system's own search: " + wrong);
            }
            throw LibraryNotLoadedException.AfterTrying(tried, why);
        }

        private static bool TryLoad(string file, out string wrong)
        {
            IntPtr handle = NativeLoader.Open(file, out wrong);
            if (handle == IntPtr.Zero) return false;
            wrong = Exports.BindTo(handle);
            return wrong == null;
        }

        // Empty in a program that was published as a single file.
        private static string AssemblyFolder()
        {
            string location = typeof(Library).Assembly.Location;
            return string.IsNullOrEmpty(location) ? null : Path.GetDirectoryName(location);
        }
    }
}
