using System;
using System.Collections.Generic;
using System.Globalization;
using System.Text;

namespace Tolvex
{
    /// <summary>A reply of the service: the text as it came, and its members.</summary>
    public sealed class Reply
    {
        private readonly Dictionary<string, string> members;

        private Reply(string text, Dictionary<string, string> members)
        {
            Text = text;
            this.members = members;
        }

        /// <summary>The whole reply, as the service sent it.</summary>
        public string Text { get; private set; }

        /// <summary>The names of the members.</summary>
        public IEnumerable<string> Names
        {
            get { return members.Keys; }
        }

        /// <summary>
        /// A member's value, or null if the reply does not have it. Of a value that is no text it is the JSON text.
        /// </summary>
        public string this[string name]
        {
            get
            {
                string value;
                return members.TryGetValue(name, out value) ? value : null;
            }
        }

        /// <summary>The text of the reply.</summary>
        public override string ToString()
        {
            return Text;
        }

        internal static Reply Of(string operation, byte[] buffer)
        {
            string text = Texts.FromBytes(buffer, 0, buffer.Length);
            Dictionary<string, string> members = new JsonObject(text).Members();
            if (members == null) throw TolvexException.Unreadable(operation, "The reply is no JSON object: " + text + ".");
            return new Reply(text, members);
        }

        // One object of JSON; what lies deeper stays text.
        private sealed class JsonObject
        {
            private readonly string text;
            private int at;

            internal JsonObject(string text)
            {
                this.text = text;
            }

            // Null for what is no object.
            internal Dictionary<string, string> Members()
            {
                var members = new Dictionary<string, string>();
                if (!Take('{')) return null;
                if (Take('}')) return IsEnd ? members : null;
                do
                {
                    SkipBlanks();
                    string name = String(), value;
                    if (name == null || !Take(':') || (value = Value()) == null) return null;
                    members[name] = value;
                }
                while (Take(','));
                return Take('}') && IsEnd ? members : null;
            }

            private bool IsEnd
            {
                get
                {
                    SkipBlanks();
                    return at == text.Length;
                }
            }

            private void SkipBlanks()
            {
                while (at < text.Length && " \t\r\n".IndexOf(text[at]) >= 0) ++at;
            }

            private bool Take(char mark)
            {
                SkipBlanks();
                if (at == text.Length || text[at] != mark) return false;
                ++at;
                return true;
            }

            private string Value()
            {
                SkipBlanks();
                if (at == text.Length) return null;
                if (text[at] == '"') return String();
                int start = at, depth = 0;
                for (; at < text.Length; ++at)
                {
                    char now = text[at];
                    if (now == '"')
                    {
                        if (String() == null) return null;
                        --at;
                    }
                    else if (now == '{' || now == '[')
                    {
                        ++depth;
                    }
                    else if (depth > 0 && (now == '}' || now == ']'))
                    {
                        --depth;
                    }
                    else if (depth == 0 && (now == ',' || now == '}'))
                    {
                        break;
                    }
                }
                string value = text.Substring(start, at - start).Trim();
                return depth == 0 && value.Length > 0 ? value : null;
            }

            private string String()
            {
                if (at == text.Length || text[at] != '"') return null;
                var value = new StringBuilder();
                for (++at; at < text.Length; ++at)
                {
                    if (text[at] == '"')
                    {
                        ++at;
                        return value.ToString();
                    }
                    if (text[at] != '\\')
                    {
                        value.Append(text[at]);
                    }
                    else if (!Escaped(value))
                    {
                        return null;
                    }
                }
                return null;
            }

            // Behind a backslash; ends on the last character of it.
            private bool Escaped(StringBuilder value)
            {
                const string marks = "\"\\/bfnrt", meant = "\"\\/\b\f\n\r\t";
                if (++at == text.Length) return false;
                int mark = marks.IndexOf(text[at]);
                if (mark >= 0)
                {
                    value.Append(meant[mark]);
                    return true;
                }
                int number;
                if (text[at] != 'u' || at + 4 >= text.Length ||
                    !int.TryParse(text.Substring(at + 1, 4), NumberStyles.AllowHexSpecifier, CultureInfo.InvariantCulture, out number))
                {
                    return false;
                }
                value.Append((char)number);
                at += 4;
                return true;
            }
        }
    }
}
