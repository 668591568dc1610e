// A small sale: apples are weighed in a bowl, the receipt is printed and cut, the drawer opened. If the paper ends, the
// receipt is printed again when there is new paper.
//
// Build it with dotnet build, or with Mono: mcs Checkout.cs -r:Tolvex.dll
// Run it while the service, or zelkad-sim in its place, is running. The program asks for what the person at the scale
// has to do, and waits for it.
//
// usage: Checkout [ADDRESS]
//   ADDRESS  of the service, if it is not the one in zelkad_ip_config.ini or 127.0.0.1
// Exit code: 0 the sale went through, 1 it did not.
using System;
using System.Globalization;
using System.Linq;
using System.Threading;
using Tolvex;

internal static class Checkout
{
    private const decimal PricePerKg = 2.99m;
    private const int PaperMm = 72, Columns = 48; // of size 24 on 80 mm paper
    private const int MaxTries = 3;

    private static readonly TimeSpan patience = TimeSpan.FromSeconds(60);
    private static readonly Printer printer = new Printer(PrinterType.Ticket);

    private static int Main(string[] arguments)
    {
        try
        {
            if (arguments.Length > 0) Service.SetServer(arguments[0]);
            Sell();
            Console.WriteLine("The sale is complete.");
            return 0;
        }
        catch (TolvexException e)
        {
            Console.WriteLine(e.Message);
        }
        catch (TimeoutException e)
        {
            Console.WriteLine(e.Message);
        }
        return 1;
    }

    private static void Sell()
    {
        var scale = new Scale();
        ScaleInfo info = scale.Info();
        Console.WriteLine("Scale up to " + info.MaxRanges.Max() + " " + info.Unit + ", version " + info.SystemVersion);

        WaitFor(scale, "Please put the empty bowl on the scale.", reading => reading.Net > 0);
        Console.WriteLine("  tare " + Kilograms(scale.Tare() ?? scale.Read().Tare.Value));
        Reading goods = WaitFor(scale, "Please put the apples into the bowl.", reading => reading.Net >= info.MinWeight);
        decimal price = Math.Round(goods.Net.Value * PricePerKg, 2, MidpointRounding.AwayFromZero);
        Console.WriteLine("  " + Kilograms(goods.Net.Value) + ", to pay: " + Money(price));

        Print(ReceiptOf(goods, price));
        CashDrawer.Open();
        Console.WriteLine("Receipt printed, drawer opened.");
        WaitFor(scale, "Please take everything off the scale.", reading => reading.Net < 0);
        scale.ClearTare();
    }

    // Stable weights only: the others change until they are.
    private static Reading WaitFor(Scale scale, string request, Predicate<Reading> isDone)
    {
        Console.WriteLine("> " + request);
        DateTime end = DateTime.UtcNow + patience;
        while (DateTime.UtcNow < end)
        {
            Reading reading = scale.WaitStable(patience);
            if (isDone(reading)) return reading;
            Thread.Sleep(Scale.DefaultInterval);
        }
        throw new TimeoutException("Nobody did that within " + patience.TotalSeconds + " seconds.");
    }

    private static Receipt ReceiptOf(Reading goods, decimal price)
    {
        return new Receipt()
            .Wrapped("Lindenstraße 7, Köln", 24, PaperMm)
            .Blank()
            .Wrapped("Äpfel Boskoop", 24, PaperMm)
            .Wrapped(Apart("  " + Kilograms(goods.Net.Value) + " x " + Money(PricePerKg) + "/kg", Money(price)), 24, PaperMm)
            .Wrapped(new string('-', Columns), 24, PaperMm)
            .Wrapped(Apart("TOTAL", Money(price), Columns / 2), 48, PaperMm)
            .Blank(2); // up to the knife, which sits above the head
    }

    // The receipt keeps its lines, so that it can be printed again where the paper's end cut it short; what came out
    // before is cut off first. After any other failure, somebody has to look at the paper: all of it may be there.
    private static void Print(Receipt receipt)
    {
        for (int tries = 1; ; ++tries)
        {
            try
            {
                receipt.Print(JobType.TicketCut);
                return;
            }
            catch (TolvexException e) when (e.Code == ResultCode.OutOfPaper && tries < MaxTries)
            {
                Console.WriteLine(e.Message);
                WaitForPrinter();
                printer.Cut();
            }
        }
    }

    private static void WaitForPrinter()
    {
        Console.WriteLine("> Please look at the printer.");
        DateTime end = DateTime.UtcNow + patience;
        while (!printer.Status().IsReady)
        {
            if (DateTime.UtcNow > end) throw new TimeoutException("The printer is still not ready.");
            Thread.Sleep(500);
        }
    }

    private static string Apart(string left, string right, int columns = Columns)
    {
        return left + new string(' ', Math.Max(columns - left.Length - right.Length, 1)) + right;
    }

    private static string Kilograms(decimal weight)
    {
        return weight.ToString("0.000", CultureInfo.InvariantCulture) + " kg";
    }

    private static string Money(decimal amount)
    {
        return amount.ToString("0.00", CultureInfo.InvariantCulture) + " EUR";
    }
}
