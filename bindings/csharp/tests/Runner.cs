using System;
using System.Diagnostics;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Threading.Tasks;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>
    /// Runs the tests of one class: the library's connections last as long as the process, so that each class has a
    /// process of its own.
    /// </summary>
    public static class Runner
    {
        public static int Main(string[] arguments)
        {
            string word = arguments.Length == 1 ? arguments[0] : "";
            if (word == LoadingTests.PrintLibrary) return LoadingTests.PrintLoaded(false);
            if (word == LoadingTests.PrintLoadedTwice) return LoadingTests.PrintLoaded(true);
            Type[] classes = typeof(Runner).Assembly.GetTypes()
                .Where(t => t.GetCustomAttributes(typeof(TestFixtureAttribute), false).Length > 0).ToArray();
            Type found = classes.SingleOrDefault(t => t.Name == word);
            if (found == null)
            {
                Console.Error.WriteLine("usage: Tolvex.Tests CLASS, where CLASS is " + string.Join(", ", classes.Select(t => t.Name)));
                return 2;
            }
            object tests = Activator.CreateInstance(found);
            int failures = 0, count = 0;
            try
            {
                All(tests, typeof(TestFixtureSetUpAttribute));
                foreach (MethodInfo test in Marked(found, typeof(TestAttribute)))
                {
                    ++count;
                    if (!Passes(tests, test)) ++failures;
                }
            }
            finally
            {
                All(tests, typeof(TestFixtureTearDownAttribute));
            }
            Console.WriteLine(count + " tests of " + found.Name + ", " + failures + " failed");
            return Ended(failures == 0 && count > 0 ? 0 : 1);
        }

        [DllImport("libc.so.6")]
        private static extern void _exit(int status);

        // At its end Mono waits for the threads of its pool. Now and then it fails to wake one that has nothing to do, which
        // sleeps for up to a minute.
        private static int Ended(int status)
        {
            Console.Out.Flush();
            _exit(status);
            return status;
        }

        private static bool Passes(object tests, MethodInfo test)
        {
            Exception failure = null;
            Stopwatch watch = Stopwatch.StartNew();
            try
            {
                All(tests, typeof(SetUpAttribute));
                Call(tests, test);
            }
            catch (Exception e)
            {
                failure = e;
            }
            string line = (failure == null ? "ok      " : "FAILED  ") + test.Name + ", " + watch.ElapsedMilliseconds + " ms";
            Console.WriteLine(failure == null ? line : line + "\n" + failure);
            return failure == null;
        }

        private static void Call(object tests, MethodInfo method)
        {
            try
            {
                var task = method.Invoke(tests, null) as Task;
                if (task != null) task.GetAwaiter().GetResult();
            }
            catch (TargetInvocationException e)
            {
                System.Runtime.ExceptionServices.ExceptionDispatchInfo.Capture(e.InnerException).Throw();
            }
        }

        private static void All(object tests, Type attribute)
        {
            foreach (MethodInfo method in Marked(tests.GetType(), attribute)) Call(tests, method);
        }

        private static MethodInfo[] Marked(Type type, Type attribute)
        {
            return type.GetMethods().Where(m => m.GetCustomAttributes(attribute, true).Length > 0).ToArray();
        }
    }
}
