// A sale at a checkout: an article is weighed in a bowl, the receipt is printed and cut, and the drawer opened.
// When the paper ends in the middle of the receipt, the program waits for new paper and prints it again.
//
// Build:  fpc -Fu.. checkout.pas        (Delphi: a console application for Win64, with .. in the search path)
// Run it while the service, or zelkad-sim in its place, is running. It asks for what the person at the scale
// has to do, and waits for it.
//
// usage: checkout [ADDRESS]
//   ADDRESS  of the service, if it is not on this machine
// Exit code: 0 the sale went through, 1 it did not.
program checkout;

{$IFDEF FPC}
  {$CODEPAGE UTF8}
  {$H+}
{$ENDIF}
{$IFDEF MSWINDOWS}
  {$APPTYPE CONSOLE}
{$ENDIF}

uses
{$IFDEF UNIX}
  cthreads, // before all others: the unit has threads and locks
{$ENDIF}
  SysUtils, tolvex;

const
  Patience = 60000;  // milliseconds for the person at the scale
  PerKilogram = 1890; // cents
  PaperWidth = 72;   // millimetres
  Normal = 24;
  Large = 48;

type
  TWanted = (waEmpty, waLoad, waLifted);

procedure Tell(const AText: UnicodeString);
begin
  WriteLn(AText);
  Flush(Output);
end;

// Whole cents from ten-thousandths of a kilogram, half a cent up.
function CentsOf(AWeight: Currency): Int64;
begin
  Result := (Round(AWeight * 10000) * PerKilogram + 5000) div 10000;
end;

function Amount(ACents: Int64): UnicodeString;
begin
  Result := WeightToText(ACents / 100, 2);
end;

function Columns(ASize: Integer): Integer;
begin
  Result := PaperWidth * 8 div (ASize div 2);
end;

// One text at the left end, another at the right end.
function Apart(const ALeft, ARight: UnicodeString; ASize: Integer): UnicodeString;
begin
  Result := ALeft;
  while Length(Result) + Length(ARight) < Columns(ASize) do
    Result := Result + ' ';
  Result := Result + ARight;
end;

// Waits for a stable weight of the wanted kind.
function WaitFor(AScale: TScale; const ARequest: UnicodeString; AWanted: TWanted): TReading;
var
  Waited: Integer;
begin
  Tell('> ' + ARequest);
  Waited := 0;
  while Waited < Patience do
  begin
    Result := AScale.WaitStable(Patience);
    if ((AWanted = waEmpty) and Result.AtZero) or ((AWanted = waLoad) and (Result.Net > 0)) or
      ((AWanted = waLifted) and (Result.Net < 0)) then
    begin
      Tell('  net ' + WeightToText(Result.Net) + ' kg, tare ' + WeightToText(Result.Tare) + ' kg');
      Exit;
    end;
    Sleep(AScale.PollInterval);
    Inc(Waited, AScale.PollInterval);
  end;
  raise Exception.Create('Nobody did that in time.');
end;

procedure PrintWithRetry(AReceipt: TReceipt);
var
  Printer: TPosPrinter;
  Waited: Integer;
begin
  Printer := TPosPrinter.Create(ptTicket);
  try
    while True do
      try
        AReceipt.Print(jtTicketCut);
        Exit;
      except
        on E: ETolvexError do
        begin
          if E.Code <> TOLVEX_RESULT_OUT_OF_PAPER then
            raise;
          Tell('> ' + E.Remedy);
          Waited := 0;
          while not Printer.Status.Ready do
          begin
            if Waited >= Patience then
              raise;
            Sleep(200);
            Inc(Waited, 200);
          end;
          Printer.Cut; // what came out before is not complete
        end;
      end;
  finally
    Printer.Free;
  end;
end;

procedure Sell;
var
  Scale: TScale;
  Receipt: TReceipt;
  Reading: TReading;
  Cents: Int64;
  Tare: Currency;
begin
  Scale := TScale.Create;
  Receipt := TReceipt.Create;
  try
    WaitFor(Scale, 'Please empty the scale.', waEmpty);
    WaitFor(Scale, 'Please put the empty bowl on the scale.', waLoad);
    if Scale.TakeTare(Tare) then
      Tell('  tare taken: ' + WeightToText(Tare) + ' kg');
    Reading := WaitFor(Scale, 'Please put the cheese into the bowl.', waLoad);
    Cents := CentsOf(Reading.Net);
    Tell('  to pay: ' + Amount(Cents));

    Receipt.Wrapped('Receipt 0042', Normal, PaperWidth).Blank;
    Receipt.Wrapped('Mountain cheese', Normal, PaperWidth);
    Receipt.Wrapped(Apart('  ' + WeightToText(Reading.Net) + ' kg x ' + Amount(PerKilogram), Amount(Cents), Normal),
      Normal, PaperWidth);
    Receipt.Wrapped(Apart('TOTAL', Amount(Cents), Large), Large, PaperWidth);
    PrintWithRetry(Receipt);
    Tell('Receipt printed and cut.');
    OpenCashDrawer;
    Tell('Drawer opened.');
    WaitFor(Scale, 'Please take everything off the scale.', waLifted);
    Scale.ClearTare;
    Tell('The sale is complete.');
  finally
    Receipt.Free;
    Scale.Free;
  end;
end;

begin
  try
    if ParamCount > 0 then
      SetServer(UnicodeString(ParamStr(1)));
    Sell;
  except
    on E: Exception do
    begin
      WriteLn(E.Message);
      Halt(1);
    end;
  end;
end.
