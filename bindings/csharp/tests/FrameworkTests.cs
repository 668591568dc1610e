using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>
    /// The assembly is compiled against Mono's mscorlib, which has more than .NET Framework 4.5 and .NET Standard 2.0: what
    /// it uses of it is listed in framework-members.txt, each line looked up in the documents of both.
    /// </summary>
    [TestFixture]
    public class FrameworkTests
    {
        private const int FirstMemberReference = 0x0A000001;

        [Test]
        public void ReferencesNothingButTheCoreLibrary()
        {
            AssemblyName only = typeof(Library).Assembly.GetReferencedAssemblies().Single();
            Assert.AreEqual("mscorlib", only.Name);
            Assert.AreEqual(new Version(4, 0, 0, 0), only.Version);
        }

        [Test]
        public void UsesOnlyWhatAllFrameworksHave()
        {
            string[] listed = File.ReadAllLines(Simulator.Needed("TOLVEX_FRAMEWORK_MEMBERS"))
                .Where(line => line.Length > 0 && !line.StartsWith("#", StringComparison.Ordinal)).ToArray();
            string[] used = Used().Distinct().OrderBy(m => m, StringComparer.Ordinal).ToArray();
            CollectionAssert.IsEmpty(used.Except(listed), "used, but not listed:\n" + string.Join("\n", used.Except(listed)));
            CollectionAssert.IsEmpty(listed.Except(used), "listed, but no longer used");
        }

        private static IEnumerable<string> Used()
        {
            Module module = typeof(Library).Assembly.ManifestModule;
            Type[] any = { typeof(int), typeof(int), typeof(int) };
            for (int token = FirstMemberReference; ; ++token)
            {
                MemberInfo member;
                try
                {
                    member = module.ResolveMember(token, any, any);
                }
                catch (ArgumentException)
                {
                    yield break;
                }
                Type type = member.DeclaringType;
                if (type.IsGenericType) type = type.GetGenericTypeDefinition();
                if (type.Assembly != typeof(object).Assembly) continue;
                yield return type.FullName + " " + Open(member);
            }
        }

        // As the type declares it: without the types that it is used with.
        private static string Open(MemberInfo member)
        {
            return member.Module.ResolveMember(member.MetadataToken).ToString();
        }
    }
}
