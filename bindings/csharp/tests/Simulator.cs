using System;
using System.Collections.Concurrent;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Text;
using System.Threading;

namespace Tolvex.Tests
{
    /// <summary>A zelkad-sim of the test's own, operated at its console.</summary>
    public sealed class Simulator : IDisposable
    {
        private static readonly TimeSpan limit = TimeSpan.FromSeconds(30);

        private readonly BlockingCollection<string> lines = new BlockingCollection<string>();
        private readonly string record, arguments;
        private Process process;

        public Simulator(string moreArguments = "")
        {
            Folder = Path.Combine(Path.GetTempPath(), "tolvex-csharp-" + Guid.NewGuid().ToString("N"));
            Directory.CreateDirectory(Folder);
            record = Path.Combine(Folder, "record.jsonl");
            arguments = moreArguments;
            Start();
        }

        public static string Address
        {
            get { return Needed("TOLVEX_TEST_ADDRESS"); }
        }

        public string Folder { get; private set; }

        public static string Needed(string variable)
        {
            string value = Environment.GetEnvironmentVariable(variable);
            if (string.IsNullOrEmpty(value)) throw new InvalidOperationException("The environment variable " + variable + " is not set.");
            return value;
        }

        // ---- Its life ----

        public void Start()
        {
            process = new Process
            {
                StartInfo = new ProcessStartInfo(Needed("ZELKAD_SIM"), "--address " + Address + " --no-web --console --quiet --settling 0 --record " +
                    record + " --paper-dir " + Path.Combine(Folder, "paper") + " " + arguments)
                {
                    UseShellExecute = false,
                    RedirectStandardInput = true,
                    RedirectStandardOutput = true,
                    StandardOutputEncoding = Encoding.UTF8
                }
            };
            process.OutputDataReceived += (sender, line) => lines.Add(line.Data ?? "(the simulator has ended)");
            process.Start();
            process.BeginOutputReadLine();
            while (Next("the simulator to be ready") != "zelkad-sim: ready")
            {
            }
        }

        public void Kill()
        {
            End();
            while (Next("the simulator's end") != "(the simulator has ended)")
            {
            }
        }

        public void Dispose()
        {
            if (!process.HasExited) End();
            Directory.Delete(Folder, true);
        }

        private void End()
        {
            process.Kill();
            if (!process.WaitForExit((int)limit.TotalMilliseconds)) throw new TimeoutException("waited for the simulator to end");
        }

        // Asks until the answer is true.
        public static void Await(string what, Func<bool> question)
        {
            DateTime end = DateTime.UtcNow + limit;
            while (!question())
            {
                if (DateTime.UtcNow > end) throw new TimeoutException("waited " + limit.TotalSeconds + " s for " + what);
                Thread.Sleep(20);
            }
        }

        // ---- What is done at its console ----

        public void Do(params string[] commands)
        {
            foreach (string command in commands)
            {
                process.StandardInput.WriteLine(command);
                process.StandardInput.Flush();
                string answer = Next("the answer to " + command);
                if (!answer.StartsWith("ok", StringComparison.Ordinal)) throw new InvalidOperationException(command + ": " + answer);
            }
        }

        // As after the start.
        public void Reset()
        {
            Do("wire off", "plug", "invalid off", "unstable off", "load 0", "clear-tare", "zero");
            Do("fault out-of-paper off", "fault busy off", "fault hot off", "tear", "tear Label", "load-paper endless");
        }

        private string Next(string what)
        {
            string line;
            if (!lines.TryTake(out line, limit)) throw new TimeoutException("waited " + limit.TotalSeconds + " s for " + what);
            return line;
        }

        // ---- What it saw ----

        // The requests of a port, as they came.
        public List<string> Requests(string port)
        {
            var found = new List<string>();
            using (var stream = new FileStream(record, FileMode.Open, FileAccess.Read, FileShare.ReadWrite))
            using (var reader = new StreamReader(stream, Encoding.UTF8))
            {
                string text = reader.ReadToEnd();
                foreach (string line in text.Substring(0, text.LastIndexOf('\n') + 1).Split(new[] { '\n' }, StringSplitOptions.RemoveEmptyEntries))
                {
                    Reply exchange = Reply.Of("record", Encoding.UTF8.GetBytes(line));
                    if (exchange["port"] == port) found.Add(exchange["request"] ?? exchange["request_base64"]);
                }
            }
            return found;
        }

        // Those behind the first so many, as soon as there are so many of them.
        public List<string> Requests(string port, int behind, int count)
        {
            DateTime end = DateTime.UtcNow + limit;
            for (;;)
            {
                List<string> now = Requests(port).Skip(behind).ToList();
                if (now.Count >= count) return now;
                if (DateTime.UtcNow > end) throw new TimeoutException("waited for " + count + " requests of " + port + ", there are " + string.Join("\n", now));
                Thread.Yield();
            }
        }

        public string[] PaperFiles()
        {
            string folder = Path.Combine(Folder, "paper");
            return Directory.Exists(folder) ? Directory.GetFiles(folder, "*.txt").OrderBy(f => f, StringComparer.Ordinal).ToArray() : new string[0];
        }
    }
}
