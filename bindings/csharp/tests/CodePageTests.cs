using System;
using System.Linq;
using System.Text;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>Receipts in the character set of the locale that the process runs in.</summary>
    public abstract class CodePageTests : DeviceTests
    {
        protected void CheckPrints(string text)
        {
            new Receipt().Text(text).Wrapped(text, 24, 72).Print(JobType.Ticket);
            string[] requests = Printed(3).ToArray();
            Assert.AreEqual(Line(text), requests[0]);
            StringAssert.EndsWith("\"text\":\"" + text + "\"}", requests[1]);
        }

        // The simulator answers whether there is a picture. The library sends its copy, or the path where it could not make
        // one: names of files are UTF-8 to .NET, whatever the locale.
        protected void CheckPrintsPicture(string name)
        {
            string file = Picture(name);
            new Receipt().Image(file).Print(JobType.Ticket);
            new Printer(PrinterType.Ticket).PrintImage(file);
            StringAssert.IsMatch("/(prt_[0-9]+.bmp|" + name + ")\"}$", Printed(3)[0]);
            StringAssert.Contains("/" + name + "\"", Printed(3)[2]);
        }

        protected void CheckRefuses(string text, int index, string number, string set)
        {
            var receipt = new Receipt().Text("before").Text(text);
            var refused = Assert.Throws<UnprintableTextException>(() => receipt.Print(JobType.Ticket));
            Assert.AreEqual(index, refused.Index);
            Assert.AreEqual(set, refused.CodePage);
            StringAssert.StartsWith("The character " + number + " (" + refused.Character + ") at position " + index, refused.Message);
            StringAssert.Contains("is not in " + set, refused.Message);
            StringAssert.Contains("Printer.PrintText", refused.Message);
            Assert.Throws<UnprintableTextException>(() => receipt.PrintAsync(JobType.Ticket));
            Assert.AreEqual(0, Printed(0).Count);

            receipt.ReplacesUnprintable = true;
            receipt.Print(JobType.Ticket);
            CollectionAssert.AreEqual(
                new[] { Line("before"), Line(text.Replace(refused.Character, "?")), Confirm }, Printed(3));
            new Printer(PrinterType.Ticket).PrintText(text);
            Assert.AreEqual(Line(text), Printed(4)[3]);
        }
    }

    [TestFixture]
    public class GbkTests : CodePageTests
    {
        [Test]
        public void PrintsAPictureByItsName()
        {
            CheckPrintsPicture("苹果.bmp");
        }

        [Test]
        public void PrintsWhatTheCodePageHas()
        {
            CheckPrints("苹果 1.44 Яблоки é");
        }

        [Test]
        public void RefusesWhatItDoesNotHave()
        {
            CheckRefuses("苹果 😀.", 3, "U+1F600", "GBK");
        }

        [Test]
        public void RefusesALetterThatItDoesNotHave()
        {
            CheckRefuses("Ärger", 0, "U+00C4", "GBK");
        }
    }

    [TestFixture]
    public class Cp1251Tests : CodePageTests
    {
        [Test]
        public void PrintsAPictureByItsName()
        {
            CheckPrintsPicture("Яблоки.bmp");
        }

        [Test]
        public void PrintsWhatTheCodePageHas()
        {
            CheckPrints("Яблоки 1.44 €");
        }

        [Test]
        public void RefusesWhatItDoesNotHave()
        {
            CheckRefuses("Яблоки Ä", 7, "U+00C4", "CP1251");
        }
    }

    [TestFixture]
    public class Latin1Tests : CodePageTests
    {
        [Test]
        public void RefusesAPictureWhoseNameItDoesNotHave()
        {
            var receipt = new Receipt { ReplacesUnprintable = true }.Text("x").Image(Picture("Яблоки.bmp"));
            var refused = Assert.Throws<UnprintableTextException>(() => receipt.Print());
            StringAssert.Contains("Printer.PrintImage", refused.Message);
            Assert.AreEqual(0, Printed(0).Count);
        }

        [Test]
        public void PrintsAPictureByItsName()
        {
            CheckPrintsPicture("Äpfel.bmp");
        }

        [Test]
        public void PrintsWhatTheCodePageHas()
        {
            CheckPrints("Äpfel ½ 1.44");
        }

        [Test]
        public void RefusesTheEuroSign()
        {
            CheckRefuses("Äpfel 1.44 €", 11, "U+20AC", "ISO-8859-1");
        }

        [Test]
        public void OfALongTextWhatIsAroundTheCharacterIsTold()
        {
            string many = string.Concat(Enumerable.Repeat("\U0001F600", 50));
            var receipt = new Receipt().Text(new string('a', 100) + "\u20AC" + new string('b', 100));
            StringAssert.Contains(" of \"..." + new string('a', 30) + "\u20AC" + new string('b', 29) + "...\" is not in",
                Assert.Throws<UnprintableTextException>(() => receipt.Print()).Message);
            StringAssert.Contains(" of \"\U0001F600", Assert.Throws<UnprintableTextException>(() => Exports.Ansi(many)).Message);
            foreach (string text in new[] { many, "\u00C4" + many })
            {
                string message = Assert.Throws<UnprintableTextException>(() => Exports.Ansi(text)).Message;
                Assert.AreEqual(message, Texts.FromBytes(Encoding.UTF8.GetBytes(message), 0, Encoding.UTF8.GetByteCount(message)));
            }
        }

        [Test]
        public void RefusesCyrillicLetters()
        {
            CheckRefuses("Ж", 0, "U+0416", "ISO-8859-1");
        }

        [Test]
        public void RawTextsAreInTheCodePage()
        {
            CollectionAssert.AreEqual(new byte[] { 0xC4, 0 }, Exports.Ansi("Ä"));
            CollectionAssert.AreEqual(new byte[] { 0 }, Exports.Ansi(""));
            Assert.AreEqual(20001, Exports.Ansi(new string('Ä', 20000)).Length);
        }
    }

    [TestFixture]
    public class Utf8Tests : CodePageTests
    {
        [Test]
        public void PrintsAPictureByItsName()
        {
            CheckPrintsPicture("Äpfel 苹果.bmp");
        }

        [Test]
        public void PrintsAllScripts()
        {
            CheckPrints("Äpfel 苹果 Яблоки 😀 €");
        }

        [Test]
        public void HalfCharactersAreRefusedOrReplaced()
        {
            var receipt = new Receipt { ReplacesUnprintable = true }.Text("a\uDE00b\uD83D");
            receipt.Print(JobType.Ticket);
            Assert.AreEqual(Line("a?b?"), Printed(2)[0]);
            receipt.ReplacesUnprintable = false;
            var refused = Assert.Throws<UnprintableTextException>(() => receipt.Print(JobType.Ticket));
            Assert.AreEqual(1, refused.Index);
            StringAssert.Contains("U+DE00 at position 1", refused.Message);
        }

        [Test]
        public void ALocaleIsFoundAsTheLibraryFindsIt()
        {
            Assert.AreEqual("a", PosixCharset.LocaleName("", "a", "b"));
            Assert.AreEqual("b", PosixCharset.LocaleName(null, null, "b"));
            Assert.AreEqual("", PosixCharset.LocaleName(null, "", null));
            Assert.AreEqual("GBK", PosixCharset.CharsetInName("zh_CN.GBK"));
            Assert.AreEqual("ISO-8859-15", PosixCharset.CharsetInName("de_DE.ISO-8859-15@euro"));
            Assert.AreEqual("", PosixCharset.CharsetInName("de_DE@euro.x"));
            Assert.AreEqual("", PosixCharset.CharsetInName("de_DE"));
            Assert.IsTrue(new[] { "utf8", "UTF-8", "utf_8" }.All(PosixCharset.MeansUtf8));
            Assert.IsFalse(PosixCharset.MeansUtf8("UTF-16"));
            Assert.IsTrue(PosixCharset.IsUsable("CP1252"));
            Assert.IsFalse(PosixCharset.IsUsable("UTF-16") || PosixCharset.IsUsable("") || PosixCharset.IsUsable("ASCII//TRANSLIT") ||
                PosixCharset.IsUsable("no-such-set"));
        }

        [Test]
        public void RepliesWithBadBytesAreText()
        {
            Assert.AreEqual("a\uFFFDb", Texts.FromBytes(new byte[] { (byte)'a', 0xFF, (byte)'b', 0, 1 }, 0, 5));
        }

        [Test]
        public void RepliesAreReadMemberByMember()
        {
            Reply reply = Reply.Of("x", Exports.Utf8(" {\"a\":\"\\u0041\\n\\\"\", \"b\" : 12, \"c\":{\"d\":[1,\"}\"]},\"e\":\"\"} "));
            Assert.AreEqual("A\n\"", reply["a"]);
            Assert.AreEqual("12", reply["b"]);
            Assert.AreEqual("{\"d\":[1,\"}\"]}", reply["c"]);
            Assert.AreEqual("", reply["e"]);
            Assert.IsNull(reply["f"]);
            foreach (string bad in new[] { "", "x", "{", "{\"a\"}", "{\"a\":}", "{\"a\":\"b}", "{\"a\":1,}", "{} x", "{\"a\":\"\\x\"}", "[1]" })
            {
                Assert.AreEqual(ResultCode.UnreadableReply,
                    Assert.Throws<TolvexException>(() => Reply.Of("x", Exports.Utf8(bad)), bad).Code, bad);
            }
        }
    }
}
