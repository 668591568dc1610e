using System;

namespace Tolvex
{
    /// <summary>A device, the service or the connection to it refused. The message holds all that matters.</summary>
    public class TolvexException : Exception
    {
        /// <summary>Makes the exception of a result code.</summary>
        /// <param name="operation">The export that answered it.</param>
        /// <param name="info">The code, see <see cref="ResultInfo.Of"/>.</param>
        public TolvexException(string operation, ResultInfo info) : this(operation, info, null)
        {
        }

        internal TolvexException(string operation, ResultInfo info, string detail) : base(Told(operation, info, detail))
        {
            Operation = operation;
            Info = info;
        }

        /// <summary>The result code.</summary>
        public ResultCode Code
        {
            get { return Info.Code; }
        }

        /// <summary>Its name, such as "OutOfPaper".</summary>
        public string Name
        {
            get { return Info.Name; }
        }

        /// <summary>Its text, such as "Out of Paper".</summary>
        public string Text
        {
            get { return Info.Text; }
        }

        /// <summary>What it means.</summary>
        public string Meaning
        {
            get { return Info.Meaning; }
        }

        /// <summary>What to do about it.</summary>
        public string Remedy
        {
            get { return Info.Remedy; }
        }

        /// <summary>The export that failed, such as "BeginPrint".</summary>
        public string Operation { get; private set; }

        /// <summary>The reply of a raw command that failed, if one came.</summary>
        public string Reply { get; internal set; }

        /// <summary>All of the code in one.</summary>
        public ResultInfo Info { get; private set; }

        // A reply that came and cannot be understood, although its result is success.
        internal static TolvexException Unreadable(string operation, string detail)
        {
            return new TolvexException(operation, ResultInfo.Of((int)ResultCode.UnreadableReply), detail);
        }

        private static string Told(string operation, ResultInfo info, string detail)
        {
            string said = info.Text.StartsWith("Unknown code ", StringComparison.Ordinal) ? info.Name : info.ToString();
            return operation + ": " + said + ". " + (detail == null ? "" : detail + " ") + info.Meaning + " What to do: " + info.Remedy;
        }
    }
}
