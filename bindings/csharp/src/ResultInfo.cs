namespace Tolvex
{
    /// <summary>What a result code is called and means, and what to do about it.</summary>
    public sealed class ResultInfo
    {
        internal ResultInfo(int code, string name, string text, string meaning, string remedy)
        {
            Code = (ResultCode)code;
            Name = name;
            Text = text;
            Meaning = meaning;
            Remedy = remedy;
        }

        /// <summary>The code; its number may be one that the enumeration does not have.</summary>
        public ResultCode Code { get; private set; }

        /// <summary>Its name, such as "OutOfPaper".</summary>
        public string Name { get; private set; }

        /// <summary>Its own text, such as "Out of Paper".</summary>
        public string Text { get; private set; }

        /// <summary>What it means.</summary>
        public string Meaning { get; private set; }

        /// <summary>What to do about it.</summary>
        public string Remedy { get; private set; }

        /// <summary>Tells of any code, also of one that is not in the table.</summary>
        public static ResultInfo Of(int code)
        {
            ResultInfo known;
            if (ResultTable.Rows.TryGetValue(code, out known)) return known;
            string name = "Unknown code " + code;
            return new ResultInfo(code, name, name, "The service answered a code that is not in the library's table.",
                "Look into the library's log and the service's own log, and bring both to versions that belong together.");
        }

        /// <summary>Number, name and text in one line.</summary>
        public override string ToString()
        {
            return (int)Code + " " + Name + " (" + Text + ")";
        }
    }
}
