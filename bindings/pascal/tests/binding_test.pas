// The unit against the library and a simulator.
//
// usage: binding_test SUITE
//   SUITE  Weighing, Printing, Receipts, Faults, Threads, Exports, CodePages, Replies, AsLumidesk or Loading
// Each suite runs in a process of its own, since the library has one connection and one code page in a process.
// Environment: TOLVEX_LIBRARY, ZELKAD_SIM, TOLVEX_TEST_ADDRESS, TOLVEX_TEST_FOLDER; for CodePages
// TOLVEX_TEST_CODE_PAGE, the code page that the locale is expected to have; for Loading on Windows
// TOLVEX_OTHER_LIBRARY, that of Linux.
// Compiled in the modes objfpc and delphi: the mode is the compiler's option.
program binding_test;

{$CODEPAGE UTF8}
{$IFDEF WINDOWS}
  {$APPTYPE CONSOLE}
{$ENDIF}

uses
{$IFDEF UNIX}
  cthreads,
{$ENDIF}
  Classes, SysUtils, Math, fpcunit, tolvex, simulator;

type
  TIsThere = function: Boolean;

  // A simulator of its own for each test, and texts compared as what they are.
  TSimulatorTest = class(TTestCase)
  protected
    Sim: TSimulator;
    procedure SetUp; override;
    procedure TearDown; override;
    procedure Restart;
    procedure AwaitAnswer(AIsThere: TIsThere; const AWhat: string);
    procedure Same(const AExpected, AGot: UnicodeString);
    procedure SameBytes(const AExpected, AGot: RawByteString);
    procedure SameAmount(AExpected, AGot: Currency);
    procedure Has(const APart, AWhole: UnicodeString);
    procedure SameRequests(const AExpected: array of RawByteString);
    procedure AwaitRequest(const ACommand: string);
  end;

  TWeighing = class(TSimulatorTest)
  published
    procedure AStableWeightIsReadWithAllItsFields;
    procedure ATareIsTakenToldAndCleared;
    procedure AnUnstableWeightIsAWeight;
    procedure AWaitForStabilityEndsWithTheLastReading;
    procedure StatesWithoutAWeightHaveNone;
    procedure ANegativeWeightIsNegative;
    procedure TheScaleTellsItsRanges;
    procedure ZeroIsSetAndRefusedWithItsRemedy;
    procedure HighResolutionIsReadWhereItIsChosen;
    procedure RawCommandsVersionsAndLogLevelsGoOut;
    procedure AReadingThatIsNoNumberIsAnError;
  end;

  TPrinting = class(TSimulatorTest)
  published
    procedure TextsGoOutAtOnceInUtf8;
    procedure PaperIsCutFedAndCalibrated;
    procedure AStatusIsAStateOfThePrinterAndNoError;
    procedure SettingsGoOutByName;
    procedure PrintersAreListedAndTheDrawerOpens;
    procedure WrongArgumentsAreRefusedBeforeTheLibraryIsCalled;
    procedure ErrorsTellWhatHappenedAndWhatToDo;
    procedure ACodeOfTheServicesOwnIsTold;
  end;

  TReceipts = class(TSimulatorTest)
  published
    procedure AReceiptGoesOutLineByLineAndIsCut;
    procedure ImagesAreQueuedByTheirFullPath;
    procedure ALabelGoesToTheLabelPrinter;
    procedure EachJobTypeGoesToItsPrinterAndEndsAsItSays;
    procedure AReceiptIsCheckedBeforeItsFirstLineIsQueued;
    procedure PaperThatEndsInTheMiddleIsToldAndTheReceiptPrintedAgain;
  end;

  TFaults = class(TSimulatorTest)
  published
    procedure AServiceThatIsGoneIsToldAndFoundAgain;
    procedure AReplyThatIsNoJsonIsUnreadable;
    procedure AServiceThatRefusesConnectionsDoesNotAnswer;
  end;

  TThreads = class(TSimulatorTest)
  private
    FReadings, FErrors: Integer;
    FWorkerError: UnicodeString;
    FWorkerDone: Integer;
    FScale: TScale;
    procedure TakeReading(ASender: TObject; const AReading: TReading);
    procedure TakeError(ASender: TObject; AError: Exception);
    procedure ReadHeldBack;
    procedure WorkerIsDone(AError: Exception);
    procedure Await(var ACount: Integer; ALeast: Integer; const AWhat: string);
  published
    procedure OneThreadWeighsWhileAnotherPrints;
    procedure ReceiptsOfTwoThreadsDoNotMix;
    procedure AScaleThreadReportsReadingsAndErrorsInTheMainThread;
    procedure AWorkerDoesNotHoldUpTheMainThread;
    procedure ThreadsThatNeverRanAreFreed;
    procedure AThreadThatBeginsDuringACallHasItsFloatingPointExceptions;
  end;

  TExports = class(TSimulatorTest)
  private
    FNames, FResults: TStringList;
    procedure Called(const AName, ATwin: string; AResult: Integer);
  published
    procedure EveryExportIsThereAndItsTwinAnswersTheSame;
    procedure NamesThatDifferByCaseAreDifferentExports;
    procedure RecordsAreLaidOutAsInC;
  end;

  TCodePages = class(TSimulatorTest)
  published
    procedure LettersOfTheCodePageArePrintedAsUtf8;
    procedure LettersBeyondTheCodePageAreRefusedOrReplaced;
    procedure HalfASurrogatePairIsRefused;
  end;

  // Replies that no simulator of a scale gives.
  TReplies = class(TSimulatorTest)
  protected
    procedure SetUp; override;
    function ReadingOf(const AMembers: string): TReading;
    procedure IsUnreadable(const AMembers: string);
  published
    procedure WeightsAreReadInEachWidth;
    procedure WhatIsNoNumberIsNeverAWeight;
    procedure FloatingPointExceptionsAreAsBeforeAfterACall;
    procedure ATareThatIsMissingIsNoTareOfZero;
  end;

  // As a host application of this name, with the library beside it.
  TAsLumidesk = class(TSimulatorTest)
  published
    procedure TheLibraryBesideTheProgramIsFound;
    procedure NoTareIsToldToThisApplication;
  end;

  TLoading = class(TSimulatorTest)
  protected
    procedure SetUp; override;
    procedure TearDown; override;
    function Refusal(const AFile: UnicodeString): UnicodeString;
    function Made(const AName: string; const ABytes: RawByteString): UnicodeString;
  published
    procedure EachFileThatIsNoLibraryIsToldWithItsReason;
    procedure TheRightLibraryIsLoadedAndStays;
  end;

// ---- Help ----

const
  LongestWait = 30000; // milliseconds

var
  Address: UnicodeString;

// After the service was restarted, calls on the old connection fail until its reset has come: mostly one, but the reset may
// take a fifth of a second, in which each call fails at once.
procedure TSimulatorTest.AwaitAnswer(AIsThere: TIsThere; const AWhat: string);
var
  Start: QWord;
begin
  Start := GetTickCount64;
  while not AIsThere() do
  begin
    if GetTickCount64 - Start > LongestWait then
      Fail('waited in vain for ' + AWhat + ' of the simulator, which ' + Sim.State);
    Sleep(10);
  end;
end;

function PrinterAnswers: Boolean;
begin
  Result := GetPrinterStatus(ptTicket) = 0;
end;

procedure TSimulatorTest.Restart;
begin
  Sim.Free;
  Sim := nil;
  Sim := TSimulator.Create;
  AwaitAnswer(@ServiceAnswers, 'a sign of life');
  AwaitAnswer(@PrinterAnswers, 'a printer');
end;

procedure TSimulatorTest.SetUp;
begin
  if Address = '' then
  begin
    Address := UnicodeString(Needed('TOLVEX_TEST_ADDRESS'));
    SetServer(Address);
  end;
  try
    Restart;
  except
    TearDown; // which is not called after a failure here
    raise;
  end;
end;

procedure TSimulatorTest.TearDown;
begin
  Sim.Free;
  Sim := nil;
end;

procedure TSimulatorTest.Same(const AExpected, AGot: UnicodeString);
begin
  if AExpected <> AGot then
    Fail('expected "' + string(UTF8Encode(AExpected)) + '", got "' + string(UTF8Encode(AGot)) + '"');
end;

procedure TSimulatorTest.SameBytes(const AExpected, AGot: RawByteString);
begin
  if (Length(AExpected) <> Length(AGot)) or
    ((AGot <> '') and not CompareMem(PAnsiChar(AExpected), PAnsiChar(AGot), Length(AGot))) then
    Fail('expected "' + string(AExpected) + '", got "' + string(AGot) + '"');
end;

procedure TSimulatorTest.SameAmount(AExpected, AGot: Currency);
begin
  if AExpected <> AGot then
    Fail('expected ' + string(WeightToText(AExpected, 4)) + ', got ' + string(WeightToText(AGot, 4)));
end;

procedure TSimulatorTest.Has(const APart, AWhole: UnicodeString);
begin
  if Pos(APart, AWhole) = 0 then
    Fail('"' + string(UTF8Encode(APart)) + '" is not in "' + string(UTF8Encode(AWhole)) + '"');
end;

// The latest requests, in their order.
procedure TSimulatorTest.SameRequests(const AExpected: array of RawByteString);
var
  Found: TStringList;
  I, Before: Integer;
begin
  Found := Sim.Requests;
  try
    Before := Found.Count - Length(AExpected);
    if Before < 0 then
      Fail('only ' + IntToStr(Found.Count) + ' requests');
    for I := 0 to High(AExpected) do
      SameBytes(AExpected[I], Found[Before + I]);
  finally
    Found.Free;
  end;
end;

// Until the simulator has got one.
procedure TSimulatorTest.AwaitRequest(const ACommand: string);
var
  Start: QWord;
  Found: TStringList;
  Count: Integer;
begin
  Start := GetTickCount64;
  repeat
    Found := Sim.Requests(ACommand);
    Count := Found.Count;
    Found.Free;
    if Count > 0 then
      Exit;
    if GetTickCount64 - Start > LongestWait then
      Fail('waited in vain for a request ' + ACommand + ' at the simulator, which ' + Sim.State);
    Sleep(10);
  until False;
end;

function MessageOf(AError: Exception): UnicodeString;
begin
  Result := UTF8Decode(AError.Message);
end;

// ---- Weighing ----

procedure TWeighing.AStableWeightIsReadWithAllItsFields;
var
  Scale: TScale;
  Reading: TReading;
begin
  Scale := TScale.Create;
  try
    Reading := Scale.Read;
    CheckTrue(Reading.State = rsWeight);
    CheckTrue(Reading.AtZero, 'at zero');
    Sim.Type_('load 1.5');
    Reading := Scale.Read;
    CheckTrue(Reading.HasWeight);
    CheckTrue(Reading.Stable, 'stable');
    CheckFalse(Reading.AtZero, 'not at zero');
    CheckFalse(Reading.TareActive, 'no tare');
    SameAmount(1.5, Reading.Net);
    SameAmount(0, Reading.Tare);
    Same('01.5000', Reading.NetText);
    Same('00.0000', Reading.TareText);
    // Whatever the application's separator is.
    DefaultFormatSettings.DecimalSeparator := ',';
    SameAmount(1.5, Scale.Read.Net);
    Same('1.500', WeightToText(Scale.Read.Net));
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.ATareIsTakenToldAndCleared;
var
  Scale: TScale;
  Tare: Currency;
  Reading: TReading;
begin
  Scale := TScale.Create;
  try
    Sim.Type_('load 0.12');
    CheckTrue(Scale.TakeTare(Tare), 'a tare is told');
    SameAmount(0.12, Tare);
    Sim.Type_('load 0.6');
    Reading := Scale.Read;
    CheckTrue(Reading.TareActive, 'tare active');
    SameAmount(0.48, Reading.Net);
    SameAmount(0.12, Reading.Tare);
    CheckTrue(Scale.ClearTare(Tare));
    SameAmount(0, Tare);
    CheckFalse(Scale.Read.TareActive);
    Scale.TakeTare;
    CheckTrue(Scale.Read.TareActive);
    Scale.ClearTare;
    CheckFalse(Scale.Read.TareActive);
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.AnUnstableWeightIsAWeight;
var
  Scale: TScale;
  Reading: TReading;
begin
  Scale := TScale.Create;
  try
    Sim.Type_('load 0.5');
    Sim.Type_('unstable on');
    Reading := Scale.Read;
    CheckTrue(Reading.HasWeight);
    CheckFalse(Reading.Stable);
    CheckTrue((Reading.Net > 0.49) and (Reading.Net < 0.51), 'about what lies on it');
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.AWaitForStabilityEndsWithTheLastReading;
var
  Scale: TScale;
begin
  Scale := TScale.Create;
  try
    Scale.PollInterval := 10;
    Sim.Type_('load 0.5');
    SameAmount(0.5, Scale.WaitStable(20000).Net);
    Sim.Type_('unstable on');
    try
      Scale.WaitStable(50);
      Fail('no time-out');
    except
      on E: EScaleTimeout do
      begin
        CheckTrue(E.LastReading.HasWeight);
        CheckFalse(E.LastReading.Stable);
        Has('50 ms', MessageOf(E));
      end;
    end;
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.StatesWithoutAWeightHaveNone;
var
  Scale: TScale;

  procedure HasNone(AState: TReadingState; const ATold: UnicodeString);
  var
    Reading: TReading;
    Net: Currency;
  begin
    Reading := Scale.Read;
    CheckTrue(Reading.State = AState, 'state');
    CheckFalse(Reading.Stable or Reading.AtZero or Reading.TareActive, 'flags');
    try
      Net := Reading.Net;
      Fail('a net weight: ' + string(WeightToText(Net)));
    except
      on E: ENoWeight do
        Has(ATold, MessageOf(E));
    end;
  end;

begin
  Scale := TScale.Create;
  try
    Sim.Type_('load -1');
    HasNone(rsUnderLoad, 'under load');
    Sim.Type_('load 100');
    HasNone(rsOverLoad, 'over load');
    Sim.Type_('load 1');
    Sim.Type_('invalid on');
    HasNone(rsInvalid, 'no valid weight');
    Sim.Type_('invalid off');
    SameAmount(1, Scale.Read.Net);
    Sim.Type_('unplug');
    try
      Scale.Read;
      Fail('a reading of no scale');
    except
      on E: ETolvexError do
      begin
        CheckEquals(TOLVEX_RESULT_LC_NOT_CONNECTED, E.Code);
        Same('read_standard', E.Operation);
      end;
    end;
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.ANegativeWeightIsNegative;
var
  Scale: TScale;
begin
  Scale := TScale.Create;
  try
    Sim.Type_('load 2');
    Scale.TakeTare;
    Sim.Type_('empty');
    SameAmount(-2, Scale.Read.Net);
    SameAmount(2, Scale.Read.Tare);
    Same('-2.000', WeightToText(Scale.Read.Net));
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.TheScaleTellsItsRanges;
var
  Scale: TScale;
  Info: TScaleInfo;
begin
  Scale := TScale.Create;
  try
    Info := Scale.Info;
    SameAmount(3, Info.MaxRange[0]);
    SameAmount(6, Info.MaxRange[1]);
    SameAmount(15, Info.MaxRange[2]);
    SameAmount(0.001, Info.Resolution[0]);
    SameAmount(0.005, Info.Resolution[2]);
    SameAmount(0.02, Info.MinRange);
    SameAmount(6, Info.MaxTare);
    SameAmount(3, Info.MaxPresetTare);
    Same('kg', Info.WeightUnit);
    CheckTrue(Info.SystemVersion <> '');
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.ZeroIsSetAndRefusedWithItsRemedy;
var
  Scale: TScale;
begin
  Scale := TScale.Create;
  try
    Sim.Type_('load 0.1');
    Scale.Zero;
    SameAmount(0, Scale.Read.Net);
    Sim.Type_('load 5');
    try
      Scale.Zero;
      Fail('zeroed with 5 kg on it');
    except
      on E: ETolvexError do
      begin
        CheckEquals(TOLVEX_RESULT_COMMAND_RETURN_FAIL, E.Code);
        Same('CommandReturnFail', E.Name);
        Same('Command return fail', E.Text);
        Same('send_zero', E.Operation);
        Has(E.Meaning, MessageOf(E));
        Has('What to do: ' + E.Remedy, MessageOf(E));
      end;
    end;
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.HighResolutionIsReadWhereItIsChosen;
var
  Scale: TScale;
begin
  Scale := TScale.Create;
  try
    CheckFalse(Scale.HighResolution);
    Sim.Type_('load 0.3563');
    Same('00.3560', Scale.Read.NetText);
    Scale.HighResolution := True;
    CheckTrue(Scale.HighResolution);
    SameAmount(0.3563, Scale.Read.Net);
    Scale.HighResolution := False;
  finally
    Scale.Free;
  end;
end;

procedure TWeighing.RawCommandsVersionsAndLogLevelsGoOut;
var
  Scale: TScale;
  Reply: UnicodeString;
begin
  Scale := TScale.Create;
  try
    Reply := Scale.RawCommand('getLCVersion');
    CheckTrue(ReplyMember(Reply, 'version') <> '');
    Same(ReplyMember(Reply, 'version'), Scale.Version);
    Same('0', ReplyMember(Reply, 'result'));
    Same('', ReplyMember(Reply, 'nothing'));
    try
      Scale.RawCommand('dance', '1,2', 20000);
      Fail('a command that no scale knows');
    except
      on E: ETolvexError do
      begin
        CheckEquals(TOLVEX_RESULT_UNSUPPORT_WEIGHT_CMD, E.Code);
        Same('1002', ReplyMember(E.Reply, 'result'));
      end;
    end;
    SameRequests(['{"cmd":"getLCVersion"}', '{"cmd":"getLCVersion"}', '{"cmd":"dance","paramList":"1,2"}']);
    SetServiceLogLevel(smWeighing, '3');
    Same('3', ServiceLogLevel(smWeighing));
    SetServiceLogLevel(smPrinting, '2');
    Same('2', ServiceLogLevel(smPrinting));
    Scale.SetOverloadAlarm(True);
    SameBytes('{"cmd":"setOverloadAlarm","enable":"1"}', Sim.Request('setOverloadAlarm'));
  finally
    Scale.Free;
  end;
  Same('a"'#10'é', ReplyMember('{ "x": {"n": "0"}, "b" : 5 , "n":"a\"\n\u00e9"}', 'n'));
  Same('5', ReplyMember('{ "x": {"n": "0"}, "b" : 5 , "n":"a\"\n\u00e9"}', 'b'));
end;

procedure TWeighing.AReadingThatIsNoNumberIsAnError;
var
  Scale: TScale;
begin
  Scale := TScale.Create;
  try
    // A refusal without a weight that says 0: the members of the reply are missing.
    Sim.Type_('wire result command=getweight code=0 times=1');
    try
      Scale.Read;
      Fail('a weight that was not in the reply');
    except
      on E: ETolvexError do
      begin
        CheckEquals(TOLVEX_UNREADABLE_REPLY, E.Code);
        Has('no number', MessageOf(E));
      end;
    end;
    CheckTrue(Scale.Read.HasWeight);
  finally
    Scale.Free;
  end;
end;

// ---- Printing ----

procedure TPrinting.TextsGoOutAtOnceInUtf8;
var
  Printer: TPosPrinter;
begin
  Printer := TPosPrinter.Create(ptTicket);
  try
    Printer.PrintText('Käse 1,44 € 😀');
    Printer.PrintWrapped('Äpfel', 36, 72);
    Printer.PrintText('');
  finally
    Printer.Free;
  end;
  SameRequests(['{"cmd":"printtext","printerType":"1","fontsize":"24","text":"Käse 1,44 € 😀"}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"36","width":"576","text":"Äpfel"}',
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":" "}']);
end;

procedure TPrinting.PaperIsCutFedAndCalibrated;
var
  Ticket, Labels: TPosPrinter;
begin
  Ticket := TPosPrinter.Create(ptTicket);
  Labels := TPosPrinter.Create(ptLabel);
  try
    Ticket.Cut;
    Ticket.Feed;
    FeedBlank(40);
    Labels.Calibrate;
    Ticket.CalibratePaperEnd;
    Ticket.SetPaperWidth(58);
    Labels.SetGapType(1);
    Labels.SetDirection(1);
    Ticket.SetTextWrapMode(0);
  finally
    Labels.Free;
    Ticket.Free;
  end;
  SameRequests(['{"cmd":"cutPaper","printerType":"1","Percent":"70"}',
    '{"cmd":"printblanks","distance":"13","printerType":"1"}',
    '{"cmd":"printblanks","distance":"40","printerType":"100"}',
    '{"cmd":"calibrateLabelGap","printerType":"0"}',
    '{"cmd":"calibrateOutOfPaper","printerType":"1"}',
    '{"cmd":"setpaperwidth","width":"464","printerType":"1"}',
    '{"cmd":"setGapType","gapType":"1","printerType":"0"}',
    '{"cmd":"setdirection","direction":"1","printerType":"0"}',
    '{"cmd":"setTextWrapMode","printerType":"1","WrapMode":"0"}']);
end;

procedure TPrinting.AStatusIsAStateOfThePrinterAndNoError;
var
  Printer: TPosPrinter;
  Status: TPrinterStatus;
begin
  Printer := TPosPrinter.Create(ptTicket);
  try
    CheckTrue(Printer.Status.Ready);
    Sim.Type_('fault out-of-paper on');
    Status := Printer.Status;
    CheckFalse(Status.Ready);
    CheckEquals(TOLVEX_RESULT_OUT_OF_PAPER, Status.Code);
    Same('OutOfPaper', Status.Name);
    Same('Out of Paper', Status.Text);
    Has('Put in new paper', Status.Remedy);
    Sim.Type_('fault unplugged on');
    CheckEquals(TOLVEX_RESULT_PRINTER_NOT_FOUND, Printer.Status.Code);
    Sim.Type_('wire result command=printerStatus code=7 times=1');
    try
      Printer.Status;
      Fail('a state 7');
    except
      on E: ETolvexError do
        CheckEquals(TOLVEX_RESULT_JSON_ERR, E.Code);
    end;
  finally
    Printer.Free;
  end;
end;

procedure TPrinting.SettingsGoOutByName;
var
  Settings: TPrinterSettings;
begin
  Settings := TPrinterSettings.Create('Ticket');
  try
    Settings.SetLeftMargin(8);
    Settings.SetRightMargin(16);
    Settings.SetPaperOffset(4);
    Settings.SetContrast(50);
    Settings.SetSpeed(100);
    Settings.SetAutoPrint(True);
    Settings.SetRollback(False);
    Settings.SetTakeUpSensor(True);
    Has('SIM', Settings.FirmwareVersion);
  finally
    Settings.Free;
  end;
  SameRequests(['{"cmd":"setLeftMargin","printerName":"Ticket","leftMargin":"8"}',
    '{"cmd":"setRightMargin","printerName":"Ticket","rightMargin":"16"}',
    '{"cmd":"setPaperOffset","offset":"4","printerName":"Ticket"}',
    '{"cmd":"setcontrast","contrast":"50","printerName":"Ticket"}',
    '{"cmd":"setprintspeed","speed":"100","printerName":"Ticket"}',
    '{"cmd":"setPrtAutoPrint","printerName":"Ticket","enable":"1"}',
    '{"cmd":"setRollback","enable":"0","printerName":"Ticket"}',
    '{"cmd":"settakepapersensor","enable":"1","printerName":"Ticket"}',
    '{"cmd":"getprinterversion","printerName":"Ticket"}']);
end;

procedure TPrinting.PrintersAreListedAndTheDrawerOpens;
var
  Names: TPrinterNames;
begin
  Names := PrinterNames;
  CheckEquals(3, Length(Names));
  Same('Label', Names[0]);
  Same('Ticket', Names[1]);
  Same('Third', Names[2]);
  OpenCashDrawer;
  Has('open', UnicodeString(Sim.Type_('drawer')));
  CheckTrue(ServiceAnswers);
  try
    PrinterRawCommand('Ticket', 'beep', 3);
    Fail('a command that no printer knows');
  except
    on E: ETolvexError do
      CheckEquals(TOLVEX_RESULT_UNSUPPORT_PRINT_CMD, E.Code);
  end;
  SameBytes('{"cmd":"beep","printerName":"Ticket","intParam":"3"}', Sim.Request('beep'));
end;

type
  TArgument = (agNul, agSmallFont, agBigFont, agWidth, agNegative, agName, agLongName, agDistance, agAngle, agServer,
    agEmptyReceipt, agLongLine, agMissingImage, agCommand, agJob);

procedure PassArgument(AArgument: TArgument);
var
  Receipt: TReceipt;
  Printer: TPosPrinter;
  Settings: TPrinterSettings;
  Scale: TScale;
begin
  Receipt := TReceipt.Create;
  Printer := TPosPrinter.Create;
  Scale := TScale.Create;
  Settings := nil;
  try
    case AArgument of
      agNul: Receipt.Text('a'#0'b');
      agSmallFont: Receipt.Text('a', 11);
      agBigFont: Receipt.Wrapped('a', 73, 72);
      agWidth: Receipt.Wrapped('a', 24, 81);
      agNegative: Printer.SetGapType(-1);
      agName: Settings := TPrinterSettings.Create('');
      agLongName: Settings := TPrinterSettings.Create(UnicodeString(StringOfChar('x', 256)));
      agDistance: FeedBlank(1001);
      agAngle: Receipt.Image('a.bmp', -90);
      agServer: SetServer('localhost');
      agEmptyReceipt: Receipt.Print;
      agLongLine: Receipt.Text(UnicodeString(StringOfChar('x', 2049))).Print;
      agMissingImage: Receipt.Image('nothing-is-here.bmp').Print;
      agCommand: Scale.RawCommand('');
      agJob: Receipt.Text('a').Print(TJobType(6));
    end;
  finally
    Settings.Free;
    Scale.Free;
    Printer.Free;
    Receipt.Free;
  end;
end;

procedure TPrinting.WrongArgumentsAreRefusedBeforeTheLibraryIsCalled;
const
  Told: array[TArgument] of UnicodeString = ('NUL at position 2', '11, but it has to be from 12 to 72',
    '73, but it has to be from 12 to 72', '81, but it has to be from 0 to 80', '-1, but', 'is empty', '256 bytes',
    '1 to 1000', '-90, but', 'no IPv4 address', 'receipt is empty', '2049 bytes', 'nothing-is-here.bmp is missing',
    'command is empty', 'no job type 6');
var
  Before: TStringList;
  Count: Integer;
  Argument: TArgument;
begin
  Before := Sim.Requests;
  Count := Before.Count;
  Before.Free;
  for Argument := Low(Argument) to High(Argument) do
    try
      PassArgument(Argument);
      Fail('taken: ' + string(Told[Argument]));
    except
      on E: EArgumentException do
        Has(Told[Argument], MessageOf(E));
    end;
  Before := Sim.Requests;
  try
    CheckEquals(Count, Before.Count, 'requests');
  finally
    Before.Free;
  end;
  // 255 bytes and 2048 bytes are not too long.
  TPrinterSettings.Create(UnicodeString(StringOfChar('x', 255))).Free;
  with TReceipt.Create do
    try
      Text(UnicodeString(StringOfChar('x', 2048)) + #10 + UnicodeString(StringOfChar('y', 2048))).Print;
    finally
      Free;
    end;
end;

procedure TPrinting.ErrorsTellWhatHappenedAndWhatToDo;
var
  Receipt: TReceipt;
begin
  Sim.Type_('fault out-of-paper on');
  Receipt := TReceipt.Create;
  try
    Receipt.Text('a');
    try
      Receipt.Print;
      Fail('printed without paper');
    except
      on E: ETolvexError do
      begin
        CheckEquals(TOLVEX_RESULT_OUT_OF_PAPER, E.Code);
        Same('BeginPrint: 2006 OutOfPaper (Out of Paper). The printer has no paper left. What to do: ' +
          'Put in new paper, close the cover, and print the job again: what came out before is not complete.',
          MessageOf(E));
      end;
    end;
  finally
    Receipt.Free;
  end;
end;

procedure TPrinting.ACodeOfTheServicesOwnIsTold;
begin
  Sim.Type_('wire result command=opencashbox code=4711 times=1');
  try
    OpenCashDrawer;
    Fail('opened');
  except
    on E: ETolvexError do
    begin
      CheckEquals(4711, E.Code);
      Same('Unknown code 4711', E.Name);
      Has('OpenCashDrawerEx: Unknown code 4711.', MessageOf(E));
      Has('log', E.Remedy);
    end;
  end;
end;

// ---- Receipts ----

procedure TReceipts.AReceiptGoesOutLineByLineAndIsCut;
var
  Receipt: TReceipt;
begin
  Receipt := TReceipt.Create;
  try
    Receipt.Text('Lindenstraße 7').Blank.Wrapped('TOTAL €', 48, 72).Text('one'#13#10'two');
    CheckEquals(4, Receipt.Count);
    Receipt.Print;
  finally
    Receipt.Free;
  end;
  SameRequests(['{"cmd":"printtext","printerType":"1","fontsize":"24","text":"Lindenstraße 7"}',
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":" "}',
    '{"cmd":"print_text_width","printerType":"1","fontsize":"48","width":"576","text":"TOTAL €"}',
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":"one"}',
    '{"cmd":"printtext","printerType":"1","fontsize":"24","text":"two"}',
    '{"cmd":"beginPrint","printerType":"1"}',
    '{"cmd":"cutPaper","printerType":"1","Percent":"70"}']);
  Has('TOTAL €', UTF8Decode(Sim.Type_('paper Ticket')));
end;

const
  Picture: UnicodeString = 'Löwe.bmp';

// A picture of one black dot.
procedure WritePicture;
const
  Bytes: array[0..57] of Byte = (
    $42, $4D, 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0,
    0, 0, 0, 0, 4, 0, 0, 0, $13, $0B, 0, 0, $13, $0B, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
var
  Opened: THandle;
begin
{$IFDEF UNIX}
  Opened := FileCreate(RawByteString(ScratchFolder) + UTF8Encode(Picture)); // bytes
{$ELSE}
  Opened := FileCreate(UnicodeString(ScratchFolder) + Picture);
{$ENDIF}
  FileWrite(Opened, Bytes, SizeOf(Bytes));
  FileClose(Opened);
end;

procedure TReceipts.ImagesAreQueuedByTheirFullPath;
var
  Receipt: TReceipt;
  Printer: TPosPrinter;
  Printed: TStringList;
  Before: string;
begin
  WritePicture;
  Before := GetCurrentDir;
  Receipt := TReceipt.Create;
  Printer := TPosPrinter.Create(ptTicket);
  try
    CheckTrue(SetCurrentDir(ScratchFolder));
    Receipt.Image(Picture, 90);
    Printer.PrintImage(Picture);
    SetCurrentDir(Before); // the path stays that of before
    Receipt.Print(jtTicket);
  finally
    SetCurrentDir(Before);
    Printer.Free;
    Receipt.Free;
  end;
  Printed := Sim.Requests('printbmpfile');
  try
    CheckEquals(2, Printed.Count);
    Has('"angle":"0"', UnicodeString(Printed[0]));
{$IFDEF UNIX}
    SameBytes('{"cmd":"printbmpfile","printerType":"1","angle":"0","filename":"' +
      UTF8Encode(UnicodeString(ScratchFolder) + Picture) + '"}', Printed[0]);
    Has('/prt_', UnicodeString(Printed[1])); // the library's copy
{$ELSE}
    Has('\' + Picture + '"', UTF8Decode(Printed[0]));
    Has('\' + Picture + '"', UTF8Decode(Printed[1])); // no log folder, so no copy
{$ENDIF}
    Has('"angle":"90"', UnicodeString(Printed[1]));
  finally
    Printed.Free;
  end;
end;

procedure TReceipts.ALabelGoesToTheLabelPrinter;
var
  Receipt: TReceipt;
begin
  Receipt := TReceipt.Create;
  try
    Receipt.Text('Cheese', 36).PrintLabel;
    Receipt.Print(jtFllpCut);
    Receipt.Print(jtLabelFeed);
  finally
    Receipt.Free;
  end;
  SameRequests(['{"cmd":"printtext","printerType":"0","fontsize":"36","text":"Cheese"}',
    '{"cmd":"beginPrint","printerType":"0"}',
    '{"cmd":"printtext","printerType":"2","fontsize":"36","text":"Cheese"}',
    '{"cmd":"beginPrint","printerType":"2"}',
    '{"cmd":"cutPaper","printerType":"2","Percent":"70"}',
    '{"cmd":"printtext","printerType":"0","fontsize":"36","text":"Cheese"}',
    '{"cmd":"beginPrint","printerType":"0"}',
    '{"cmd":"printblanks","distance":"13","printerType":"0"}']);
end;

procedure TReceipts.EachJobTypeGoesToItsPrinterAndEndsAsItSays;
const
  Ends: array[0..2] of RawByteString = ('beginPrint', 'printblanks', 'cutPaper');
  Jobs: array[0..14] of record
    Job: TJobType;
    PrinterType: AnsiChar;
    Last: Integer; // of Ends
  end = (
    (Job: jtTicket; PrinterType: '1'; Last: 0), (Job: jtLabel; PrinterType: '0'; Last: 0),
    (Job: jtTicketFeed; PrinterType: '1'; Last: 1), (Job: jtTicketImage; PrinterType: '1'; Last: 0),
    (Job: jtTicketCut; PrinterType: '1'; Last: 2), (Job: jtFpFeed; PrinterType: '1'; Last: 1),
    (Job: jtFpCut; PrinterType: '1'; Last: 2), (Job: jtLabelImage; PrinterType: '0'; Last: 0),
    (Job: jtLabelDots; PrinterType: '0'; Last: 0), (Job: jtLabelFeedAuto; PrinterType: '0'; Last: 1),
    (Job: jtFlpCut; PrinterType: '1'; Last: 2), (Job: jtLabelFeed; PrinterType: '0'; Last: 1),
    (Job: jtThird; PrinterType: '2'; Last: 0), (Job: jtFllpFeed; PrinterType: '2'; Last: 1),
    (Job: jtFllpCut; PrinterType: '2'; Last: 2));
var
  Receipt: TReceipt;
  Printed: TStringList;
  I: Integer;
  Last: string;
begin
  Receipt := TReceipt.Create;
  try
    Receipt.Text('a');
    for I := Low(Jobs) to High(Jobs) do
    begin
      Receipt.Print(Jobs[I].Job);
      Printed := Sim.Requests;
      try
        Last := Printed[Printed.Count - 1];
      finally
        Printed.Free;
      end;
      CheckEquals(1, Pos('{"cmd":"' + Ends[Jobs[I].Last] + '"', Last), IntToStr(Ord(Jobs[I].Job)) + ': ' + Last);
      CheckTrue(Pos('"printerType":"' + Jobs[I].PrinterType + '"', Last) > 0, IntToStr(Ord(Jobs[I].Job)) + ': ' + Last);
    end;
  finally
    Receipt.Free;
  end;
end;

procedure TReceipts.AReceiptIsCheckedBeforeItsFirstLineIsQueued;
var
  Receipt: TReceipt;
begin
  Receipt := TReceipt.Create;
  try
    Receipt.Text('first').Text('x' + WideChar($D800) + 'y');
    try
      Receipt.Print;
      Fail('half a character was printed');
    except
      on E: EUnencodableText do
      begin
        CheckEquals($D800, Integer(E.Character));
        CheckEquals(2, E.Position);
      end;
    end;
    Receipt.Clear;
    Receipt.Text('second').Print;
  finally
    Receipt.Free;
  end;
  SameBytes('{"cmd":"printtext","printerType":"1","fontsize":"24","text":"second"}', Sim.Request('printtext'));
end;

procedure TReceipts.PaperThatEndsInTheMiddleIsToldAndTheReceiptPrintedAgain;
var
  Receipt: TReceipt;
  Printer: TPosPrinter;
  Line: Integer;
  Paper: UnicodeString;
begin
  Sim.Type_('paper-left 10');
  Printer := TPosPrinter.Create(ptTicket);
  Receipt := TReceipt.Create;
  try
    for Line := 1 to 9 do
      Receipt.Text('line ' + UnicodeString(IntToStr(Line)));
    try
      Receipt.Print;
      Fail('printed without paper');
    except
      on E: ETolvexError do
        CheckEquals(TOLVEX_RESULT_OUT_OF_PAPER, E.Code);
    end;
    CheckEquals(TOLVEX_RESULT_OUT_OF_PAPER, Printer.Status.Code);
    Sim.Type_('load-paper');
    CheckTrue(Printer.Status.Ready);
    Printer.Cut; // what came out of the first try
    Receipt.Print;
  finally
    Receipt.Free;
    Printer.Free;
  end;
  Paper := UTF8Decode(Sim.Type_('paper Ticket'));
  Same('line 1'#10, Copy(Paper, 1, 7));
  for Line := 1 to 9 do
    Has('line ' + UnicodeString(IntToStr(Line)) + #10, Paper);
  CheckEquals(0, Pos(UnicodeString('~~~~'), Paper), 'the end of the roll is on other paper');
end;

// ---- Faults ----

procedure TFaults.AServiceThatIsGoneIsToldAndFoundAgain;
var
  Receipt: TReceipt;
  Scale: TScale;
begin
  Scale := TScale.Create;
  Receipt := TReceipt.Create;
  try
    Receipt.Text('again');
    Sim.Kill;
    CheckFalse(ServiceAnswers);
    try
      Scale.Read;
      Fail('a reading of no service');
    except
      on E: ETolvexError do
        CheckEquals(TOLVEX_RESULT_SOCKET_INTERRUPT, E.Code);
    end;
    try
      Receipt.Print;
      Fail('printed by no service');
    except
      on E: ETolvexError do
        CheckEquals(TOLVEX_RESULT_SOCKET_INTERRUPT, E.Code);
    end;
    Restart;
    CheckTrue(Scale.Read.HasWeight);
    Receipt.Print;
    SameBytes('{"cmd":"printtext","printerType":"1","fontsize":"24","text":"again"}', Sim.Request('printtext'));
  finally
    Receipt.Free;
    Scale.Free;
  end;
end;

procedure TFaults.AReplyThatIsNoJsonIsUnreadable;
var
  Printer: TPosPrinter;
  Scale: TScale;
begin
  Printer := TPosPrinter.Create(ptTicket);
  Scale := TScale.Create;
  try
    Sim.Type_('wire garbage command=cutPaper times=1');
    try
      Printer.Cut;
      Fail('cut by garbage');
    except
      on E: ETolvexError do
      begin
        CheckEquals(TOLVEX_UNREADABLE_REPLY, E.Code);
        Same('UnreadableReply', E.Name);
        Has('Check that the program at ports', E.Remedy);
      end;
    end;
    Sim.Type_('wire garbage command=getweight times=1');
    try
      Scale.Read;
      Fail('read from garbage');
    except
      on E: ETolvexError do
        Same('read_standard', E.Operation);
    end;
    CheckTrue(Scale.Read.HasWeight);
    Printer.Cut;
  finally
    Scale.Free;
    Printer.Free;
  end;
end;

procedure TFaults.AServiceThatRefusesConnectionsDoesNotAnswer;
begin
  Sim.Type_('wire refuse port=weighing');
  CheckFalse(ServiceAnswers);
  OpenCashDrawer;
  Sim.Type_('wire off');
  AwaitAnswer(@ServiceAnswers, 'a sign of life');
end;

// ---- Threads ----

type
  TJobThread = class(TThread)
  private
    FName: UnicodeString;
    FCount: Integer;
  protected
    procedure Execute; override;
  public
    Failure: UnicodeString;
    constructor Create(const AName: UnicodeString; ACount: Integer);
  end;

constructor TJobThread.Create(const AName: UnicodeString; ACount: Integer);
begin
  FName := AName;
  FCount := ACount;
  inherited Create(False);
end;

procedure TJobThread.Execute;
var
  Receipt: TReceipt;
  I: Integer;
begin
  try
    Receipt := TReceipt.Create;
    try
      for I := 1 to 5 do
        Receipt.Text(FName);
      for I := 1 to FCount do
        Receipt.Print;
    finally
      Receipt.Free;
    end;
  except
    on E: Exception do
      Failure := MessageOf(E);
  end;
end;

procedure TThreads.OneThreadWeighsWhileAnotherPrints;
var
  Job: TJobThread;
  Scale: TScale;
  I: Integer;
begin
  Sim.Type_('load 0.482');
  Scale := TScale.Create;
  Job := TJobThread.Create('while weighing', 20);
  try
    for I := 1 to 100 do
      SameAmount(0.482, Scale.Read.Net);
    Job.WaitFor;
    Same('', Job.Failure);
  finally
    Job.Free;
    Scale.Free;
  end;
end;

procedure TThreads.ReceiptsOfTwoThreadsDoNotMix;
var
  First, Second: TJobThread;
  Printed: TStringList;
  I, Jobs, Lines: Integer;
begin
  First := TJobThread.Create('first', 20);
  Second := TJobThread.Create('second', 20);
  try
    First.WaitFor;
    Second.WaitFor;
    Same('', First.Failure);
    Same('', Second.Failure);
  finally
    First.Free;
    Second.Free;
  end;
  Jobs := 0;
  Lines := 0;
  Printed := Sim.Requests;
  try
    for I := 0 to Printed.Count - 1 do
      if Pos('{"cmd":"printtext"', Printed[I]) = 1 then
      begin
        Inc(Lines);
        if Lines > 1 then
          SameBytes(Printed[I - 1], Printed[I]);
      end
      else if Pos('{"cmd":"beginPrint"', Printed[I]) = 1 then
      begin
        CheckEquals(5, Lines, 'lines of a receipt');
        Lines := 0;
        Inc(Jobs);
      end;
  finally
    Printed.Free;
  end;
  CheckEquals(40, Jobs);
end;

procedure TThreads.Await(var ACount: Integer; ALeast: Integer; const AWhat: string);
var
  Start: QWord;
begin
  Start := GetTickCount64;
  while ACount < ALeast do
  begin
    CheckSynchronize(10);
    if GetTickCount64 - Start > LongestWait then
      Fail('waited in vain for ' + AWhat);
  end;
end;

procedure TThreads.TakeReading(ASender: TObject; const AReading: TReading);
begin
  CheckTrue(GetCurrentThreadId = MainThreadID, 'in the main thread');
  SameAmount(0.482, AReading.Net);
  Inc(FReadings);
end;

procedure TThreads.TakeError(ASender: TObject; AError: Exception);
begin
  CheckTrue(AError is ETolvexError);
  Inc(FErrors);
end;

procedure TThreads.AScaleThreadReportsReadingsAndErrorsInTheMainThread;
var
  Scale: TScaleThread;
begin
  Sim.Type_('load 0.482');
  Scale := TScaleThread.Create(10);
  try
    Scale.OnReading := {$IFDEF FPC_OBJFPC}@{$ENDIF}TakeReading;
    Scale.OnError := {$IFDEF FPC_OBJFPC}@{$ENDIF}TakeError;
    Scale.Start;
    Await(FReadings, 3, 'three readings');
    Sim.Type_('unplug');
    Await(FErrors, 2, 'two errors');
  finally
    Scale.Free;
  end;
end;

procedure TThreads.ReadHeldBack;
begin
  FScale.Read;
end;

procedure TThreads.WorkerIsDone(AError: Exception);
begin
  if AError <> nil then
    FWorkerError := UnicodeString(AError.ClassName) + ' ' + MessageOf(AError)
  else
    FWorkerError := '';
  Inc(FWorkerDone);
end;

procedure TThreads.AWorkerDoesNotHoldUpTheMainThread;
var
  Worker: TTolvexWorker;
  Printer: TPosPrinter;
begin
  FScale := TScale.Create;
  Printer := TPosPrinter.Create(ptTicket);
  Worker := TTolvexWorker.Create;
  try
    Worker.Run({$IFDEF FPC_OBJFPC}@{$ENDIF}ReadHeldBack, {$IFDEF FPC_OBJFPC}@{$ENDIF}WorkerIsDone);
    Await(FWorkerDone, 1, 'a reading by the worker');
    Same('', FWorkerError);
    // A reply that only the end of the simulator ends.
    Sim.Type_('wire no-answer command=getweight');
    Worker.Run({$IFDEF FPC_OBJFPC}@{$ENDIF}ReadHeldBack, {$IFDEF FPC_OBJFPC}@{$ENDIF}WorkerIsDone);
    CheckTrue(Printer.Status.Ready);
    CheckSynchronize;
    CheckEquals(1, FWorkerDone, 'the reading is still under way');
    Sim.Kill;
    Await(FWorkerDone, 2, 'the end of the reading');
    Has('ETolvexError read_standard: 4 ', FWorkerError);
  finally
    Worker.Free;
    Printer.Free;
    FScale.Free;
  end;
end;

procedure TThreads.ThreadsThatNeverRanAreFreed;
begin
  try
    TScaleThread.Create(0);
    Fail('an interval of 0');
  except
    on E: EArgumentException do
      Has('The interval is 0', MessageOf(E));
  end;
  TScaleThread.Create(100).Free;
  TTolvexWorker.Create.Free;
end;

type
  TMaskThread = class(TThread)
  protected
    procedure Execute; override;
  public
    Mask: TFPUExceptionMask;
  end;

procedure TMaskThread.Execute;
begin
  Mask := GetExceptionMask;
end;

procedure TThreads.AThreadThatBeginsDuringACallHasItsFloatingPointExceptions;
var
  Worker: TTolvexWorker;
  Before, Meanwhile: TMaskThread;
begin
  FWorkerDone := 0;
  FScale := TScale.Create;
  Worker := TTolvexWorker.Create;
  Meanwhile := nil;
  Before := TMaskThread.Create(False); // not the main thread: on Windows each other begins with another mask
  try
    Before.WaitFor;
    Sim.Type_('wire no-answer command=getweight');
    Worker.Run({$IFDEF FPC_OBJFPC}@{$ENDIF}ReadHeldBack, {$IFDEF FPC_OBJFPC}@{$ENDIF}WorkerIsDone);
    AwaitRequest('getweight');
    Meanwhile := TMaskThread.Create(False);
    Meanwhile.WaitFor;
    CheckTrue(Meanwhile.Mask = Before.Mask, 'the mask of a thread that began during a call');
    Sim.Kill;
    Await(FWorkerDone, 1, 'the end of the reading');
  finally
    Worker.Free;
    Meanwhile.Free;
    Before.Free;
    FScale.Free;
  end;
end;

// ---- Exports ----

procedure TExports.Called(const AName, ATwin: string; AResult: Integer);
begin
  FNames.Add(AName);
  FResults.Values[AName] := IntToStr(AResult);
  // Stubs whose results mean nothing, and what depends on the state that the twin has changed.
  if (ATwin <> '') and (FResults.Values[ATwin] <> IntToStr(AResult)) then
    Fail(AName + ' answers ' + IntToStr(AResult) + ', ' + ATwin + ' ' + FResults.Values[ATwin]);
end;

procedure TExports.EveryExportIsThereAndItsTwinAnswersTheSame;
begin
  FNames := TStringList.Create;
  FResults := TStringList.Create;
  FResults.CaseSensitive := True;
  try
{$I calls.inc}
    CheckEquals(121, FNames.Count);
    CheckEquals('255', FResults.Values['read_standard'], 'read_standard(nil)');
    CheckEquals('2', FResults.Values['printTextById'], 'printTextById(nil)');
    CheckEquals('240', FResults.Values['ClosePrinterEx']);
    CheckEquals('255', FResults.Values['PrintLabelImage']);
    CheckEquals('240', FResults.Values['OpenPrinter']);
    CheckEquals('1', FResults.Values['checkConnection']);
    CheckEquals('240', FResults.Values['OpenCashDrawerEx']);
  finally
    FResults.Free;
    FNames.Free;
  end;
  CheckTrue(TolvexLibraryPath <> '');
end;

procedure TExports.NamesThatDifferByCaseAreDifferentExports;
begin
  CheckEquals(240, SetPrintContrast, 'does nothing');
  CheckEquals(240, SetPrintSpeed, 'does nothing');
  CheckEquals(0, setPrintContrast(50, 'Ticket'));
  CheckEquals(0, setPrintSpeed(100, 'Ticket'));
  CheckEquals(0, SetDefaultPaperWidth(58));
  CheckEquals(0, setDefaultPaperWidth(60, ptTicket));
  SameRequests(['{"cmd":"setcontrast","contrast":"50","printerName":"Ticket"}',
    '{"cmd":"setprintspeed","speed":"100","printerName":"Ticket"}',
    '{"cmd":"setpaperwidth","width":"464","printerType":"100"}',
    '{"cmd":"setpaperwidth","width":"480","printerType":"1"}']);
end;

procedure TExports.RecordsAreLaidOutAsInC;
var
  Weight: TTolvexWeight;
  BaseInfo: TTolvexBaseInfo;
begin
{$I layout.inc}
end;

// ---- Code pages ----

type
  TLetters = record
    CodePage, Inside, Outside: UnicodeString;
    Character: Integer; // Outside
  end;

const
  Letters: array[0..4] of TLetters = (
    (CodePage: 'ISO-8859-1'; Inside: 'Äpfel ½'; Outside: '€'; Character: $20AC),
    (CodePage: 'GBK'; Inside: '谢谢惠顾'; Outside: '😀'; Character: $1F600),
    (CodePage: 'CP1251'; Inside: 'Спасибо €'; Outside: 'ä'; Character: $E4),
    (CodePage: 'Windows 1252'; Inside: 'Äpfel €'; Outside: 'С'; Character: $421),
    (CodePage: 'Windows 1251'; Inside: 'Спасибо €'; Outside: '😀'; Character: $1F600));

function LettersOfTheTest: TLetters;
var
  I: Integer;
begin
  for I := Low(Letters) to High(Letters) do
  begin
    Result := Letters[I];
    if Result.CodePage = UnicodeString(Needed('TOLVEX_TEST_CODE_PAGE')) then
      Exit;
  end;
  raise ESimulator.Create('no letters for this code page');
end;

procedure TCodePages.LettersOfTheCodePageArePrintedAsUtf8;
var
  Receipt: TReceipt;
begin
  Same(UnicodeString(Needed('TOLVEX_TEST_CODE_PAGE')), ReceiptCodePage);
  Receipt := TReceipt.Create;
  try
    Receipt.Text(LettersOfTheTest.Inside).Print;
  finally
    Receipt.Free;
  end;
  SameBytes('{"cmd":"printtext","printerType":"1","fontsize":"24","text":"' + UTF8Encode(LettersOfTheTest.Inside) +
    '"}', Sim.Request('printtext'));
end;

procedure TCodePages.LettersBeyondTheCodePageAreRefusedOrReplaced;
var
  Receipt: TReceipt;
  Printer: TPosPrinter;
  Text: UnicodeString;
begin
  Text := 'x ' + LettersOfTheTest.Outside;
  Receipt := TReceipt.Create;
  Printer := TPosPrinter.Create(ptTicket);
  try
    Receipt.Text('first').Text(Text);
    try
      Receipt.Print;
      Fail('printed what the code page lacks');
    except
      on E: EUnencodableText do
      begin
        CheckEquals(LettersOfTheTest.Character, Integer(E.Character));
        CheckEquals(3, E.Position);
        Same(ReceiptCodePage, E.CodePage);
        Has('U+' + UnicodeString(IntToHex(LettersOfTheTest.Character, 4)), MessageOf(E));
        Has('What to do', MessageOf(E));
      end;
    end;
    // What helps with a text does not help with the name of a file.
    Receipt.Clear;
    Receipt.Image('/' + LettersOfTheTest.Outside + '.bmp');
    try
      Receipt.Print;
      Fail('printed a file whose name the code page lacks');
    except
      on E: EUnencodableText do
      begin
        Has('of the image''s path', MessageOf(E));
        Has('TPosPrinter.PrintImage', MessageOf(E));
      end;
    end;
    // Past the queue every letter is printed.
    Printer.PrintText(Text);
    SameRequests(['{"cmd":"printtext","printerType":"1","fontsize":"24","text":"' + UTF8Encode(Text) + '"}']);
    Printer.Cut;
    Receipt.Clear;
    Receipt.ReplaceUnknown := True;
    Receipt.Text('1 ' + LettersOfTheTest.Outside + '.').Print(jtTicket);
    SameRequests(['{"cmd":"printtext","printerType":"1","fontsize":"24","text":"1 ?."}',
      '{"cmd":"beginPrint","printerType":"1"}']);
  finally
    Printer.Free;
    Receipt.Free;
  end;
end;

procedure TCodePages.HalfASurrogatePairIsRefused;
var
  Receipt: TReceipt;
begin
  Receipt := TReceipt.Create;
  try
    Receipt.Text('ab' + WideChar($DC00));
    try
      Receipt.Print;
      Fail('half a character was printed');
    except
      on E: EUnencodableText do
        Has('U+DC00 at position 3', MessageOf(E));
    end;
  finally
    Receipt.Free;
  end;
end;

// ---- Replies ----

procedure TReplies.SetUp;
begin
  SetServer(UnicodeString(Needed('TOLVEX_TEST_ADDRESS')));
end;

// What is read of a reply with these members.
function TReplies.ReadingOf(const AMembers: string): TReading;
const
  Ask = '{"cmd":"checkConnection"} -> {"result":"0"}';
var
  Scale: TScale;
begin
  Sim.Free;
  Sim := nil;
  Sim := TSimulator.Create([Ask, '{"cmd":"getweight"} -> {"result":"0",' + AMembers + '}']);
  AwaitAnswer(@ServiceAnswers, 'a sign of life');
  Scale := TScale.Create;
  try
    Result := Scale.Read;
  finally
    Scale.Free;
  end;
end;

procedure TReplies.WeightsAreReadInEachWidth;
var
  Reading: TReading;
begin
  Reading := ReadingOf('"net":"-1.5","tare":"123.4","zero":"0","tareType":"T"');
  Same('-1.5000', Reading.NetText);
  SameAmount(-1.5, Reading.Net);
  Same('123.4000', Reading.TareText);
  SameAmount(123.4, Reading.Tare);
  CheckTrue(Reading.TareActive);
  Reading := ReadingOf('"net":"-12.5","tare":"-12.5","zero":"1","tareType":"N"');
  Same('-12.500', Reading.NetText);
  SameAmount(-12.5, Reading.Net);
  SameAmount(-12.5, Reading.Tare);
  CheckTrue(Reading.AtZero);
  CheckFalse(Reading.TareActive);
  Reading := ReadingOf('"net":"1234.5","tare":"0","zero":"0","tareType":"N"');
  SameAmount(1234.5, Reading.Net);
  Reading := ReadingOf('"net":"99.9999","tare":"0.0001","zero":"0","tareType":"N"');
  SameAmount(99.9999, Reading.Net);
  SameAmount(0.0001, Reading.Tare);
end;

procedure TReplies.IsUnreadable(const AMembers: string);
begin
  try
    ReadingOf(AMembers);
    Fail('read: ' + AMembers);
  except
    on E: ETolvexError do
    begin
      CheckEquals(TOLVEX_UNREADABLE_REPLY, E.Code);
      Has('What to do', MessageOf(E));
    end;
  end;
end;

procedure TReplies.WhatIsNoNumberIsNeverAWeight;
begin
  IsUnreadable('"net":"inf","tare":"0","zero":"0","tareType":"N"');
  IsUnreadable('"net":"nan","tare":"0","zero":"0","tareType":"N"');
  IsUnreadable('"tare":"0","zero":"0","tareType":"N"');
  // Cut off where the field ends, before the point.
  IsUnreadable('"net":"12345678.9","tare":"0","zero":"0","tareType":"N"');
end;

procedure TReplies.FloatingPointExceptionsAreAsBeforeAfterACall;
var
  Mask: TFPUExceptionMask;
  Zero: Double;
begin
  Mask := GetExceptionMask;
  CheckFalse(exInvalidOp in Mask, 'on in a program of Pascal');
  // The library compares what is no number.
  IsUnreadable('"net":"nan","tare":"nan","zero":"0","tareType":"N"');
  CheckTrue(Mask = GetExceptionMask, 'as before');
  Zero := Length(Address) * 0;
  try
    Zero := Zero / Zero;
    Fail('no exception');
  except
    on EInvalidOp do ;
    on EZeroDivide do ;
  end;
end;

procedure TReplies.ATareThatIsMissingIsNoTareOfZero;
var
  Reading: TReading;
  Tare: Currency;
begin
  Reading := ReadingOf('"net":"0.5","zero":"0","tareType":"N"');
  SameAmount(0.5, Reading.Net);
  try
    Tare := Reading.Tare;
    Fail('a tare: ' + string(WeightToText(Tare)));
  except
    on E: ETolvexError do
      CheckEquals(TOLVEX_UNREADABLE_REPLY, E.Code);
  end;
end;

// ---- As a host application that is told no tare ----

procedure TAsLumidesk.TheLibraryBesideTheProgramIsFound;
begin
  CheckEquals('', GetEnvironmentVariable('TOLVEX_LIBRARY'));
  Same(UnicodeString(ExtractFilePath(ParamStr(0))), UnicodeString(ExtractFilePath(string(TolvexLibraryPath))));
end;

procedure TAsLumidesk.NoTareIsToldToThisApplication;
var
  Scale: TScale;
  Tare: Currency;
begin
  Scale := TScale.Create;
  try
    Sim.Type_('load 0.12');
    CheckFalse(Scale.TakeTare(Tare), 'no tare is told');
    SameAmount(0.12, Scale.Read.Tare);
    CheckFalse(Scale.ClearTare(Tare), 'no tare is told');
    CheckFalse(Scale.Read.TareActive);
  finally
    Scale.Free;
  end;
end;

// ---- Loading ----

procedure TLoading.SetUp;
begin
end;

procedure TLoading.TearDown;
begin
end;

function TLoading.Made(const AName: string; const ABytes: RawByteString): UnicodeString;
begin
  with TFileStream.Create(ScratchFolder + AName, fmCreate) do
    try
      if ABytes <> '' then
        WriteBuffer(PAnsiChar(ABytes)^, Length(ABytes));
    finally
      Free;
    end;
  Result := UnicodeString(ScratchFolder + AName);
end;

function TLoading.Refusal(const AFile: UnicodeString): UnicodeString;
begin
  try
    LoadTolvex(AFile);
    Fail('loaded');
  except
    on E: ELibraryNotLoaded do
      Result := MessageOf(E);
  end;
  Has(AFile + ': ', Result);
  Has('This program has 64 bits', Result);
  Has('What to do: ', Result);
end;

function Zeros(ACount: Integer): RawByteString;
begin
  SetLength(Result, ACount);
  FillChar(PAnsiChar(Result)^, ACount, 0);
end;

function BeginningOf(const AFile: string; ACount: Integer): RawByteString;
var
  Stream: TFileStream;
begin
  Stream := TFileStream.Create(AFile, fmOpenRead or fmShareDenyNone);
  try
    SetLength(Result, ACount);
    Stream.ReadBuffer(PAnsiChar(Result)^, ACount);
  finally
    Stream.Free;
  end;
end;

procedure TLoading.EachFileThatIsNoLibraryIsToldWithItsReason;
const
{$IFDEF WINDOWS}
  Here = '64-bit Windows';
{$ELSE}
  Here = '64-bit Linux';
{$ENDIF}
var
  Elf, Pe: RawByteString;
begin
  Has('missing', Refusal(UnicodeString(ScratchFolder) + 'nothing.so'));
  Has('no library', Refusal(Made('text.so', 'This is a text.')));
  Has('no library', Refusal(Made('empty.so', '')));
  Elf := Zeros(64);
  Elf[1] := #127; Elf[2] := 'E'; Elf[3] := 'L'; Elf[4] := 'F'; Elf[5] := #1; Elf[6] := #1; Elf[7] := #1;
  Elf[17] := #3; Elf[19] := #3;
  Has('is for 32-bit Linux, needed is ' + Here, Refusal(Made('elf32.so', Elf)));
  Elf[5] := #2; Elf[19] := #183;
  Has('is for 64-bit Linux on ARM, needed is ' + Here, Refusal(Made('arm.so', Elf)));
  Pe := Zeros(128);
  Pe[1] := 'M'; Pe[2] := 'Z'; Pe[61] := #64; Pe[65] := 'P'; Pe[66] := 'E'; Pe[69] := #$4C; Pe[70] := #1;
  Has('is for 32-bit Windows, needed is ' + Here, Refusal(Made('pe32.dll', Pe)));
  Pe[69] := #$64; Pe[70] := #$86;
{$IFDEF WINDOWS}
  Has('is for 64-bit Linux, needed is ' + Here,
    Refusal(UnicodeString(ExpandFileName(Needed('TOLVEX_OTHER_LIBRARY')))));
{$ELSE}
  Has('is for 64-bit Windows, needed is ' + Here, Refusal(Made('pe64.dll', Pe)));
{$ENDIF}
  Has('is cut short: it has 100000 bytes of at least ', Refusal(Made('short.so', BeginningOf(Needed('TOLVEX_LIBRARY'), 100000))));
  // A head that is right before nothing: the system's own words.
{$IFDEF UNIX}
  Elf[19] := #62;
  Has('damaged.so: ', Refusal(Made('damaged.so', Elf)));
  Has('another library', Refusal('/lib/x86_64-linux-gnu/libm.so.6'));
{$ELSE}
  Has('damaged.dll: ', Refusal(Made('damaged.dll', Pe)));
  Has('another library', Refusal('c:\windows\system32\kernel32.dll'));
{$ENDIF}
  Same('', TolvexLibraryPath);
end;

procedure TLoading.TheRightLibraryIsLoadedAndStays;
begin
  LoadTolvex;
  Same(UnicodeString(ExpandFileName(Needed('TOLVEX_LIBRARY'))), TolvexLibraryPath);
  LoadTolvex(TolvexLibraryPath);
  Has('loaded already', Refusal(UnicodeString(ScratchFolder) + 'text.so'));
  CheckEquals(240, OpenDisplay);
end;

// ---- The program ----

type
  TTelling = class(TInterfacedObject, ITestListener)
    Failed: Boolean;
    procedure AddFailure(ATest: TTest; AFailure: TTestFailure);
    procedure AddError(ATest: TTest; AError: TTestFailure);
    procedure StartTest(ATest: TTest);
    procedure EndTest(ATest: TTest);
    procedure StartTestSuite(ATestSuite: TTestSuite);
    procedure EndTestSuite(ATestSuite: TTestSuite);
  end;

procedure TTelling.AddFailure(ATest: TTest; AFailure: TTestFailure);
begin
  Failed := True;
  WriteLn('FAILED: ', ATest.TestName, ': ', AFailure.ExceptionMessage);
end;

procedure TTelling.AddError(ATest: TTest; AError: TTestFailure);
begin
  Failed := True;
  WriteLn('FAILED: ', ATest.TestName, ': ', AError.ExceptionClassName, ': ', AError.ExceptionMessage);
end;

procedure TTelling.StartTest(ATest: TTest);
begin
  Failed := False;
end;

procedure TTelling.EndTest(ATest: TTest);
begin
  if not Failed then
    WriteLn('ok: ', ATest.TestName);
end;

procedure TTelling.StartTestSuite(ATestSuite: TTestSuite);
begin
end;

procedure TTelling.EndTestSuite(ATestSuite: TTestSuite);
begin
end;

const
  Suites: array[0..9] of TTestCaseClass = (TWeighing, TPrinting, TReceipts, TFaults, TThreads, TExports, TCodePages,
    TReplies, TAsLumidesk, TLoading);
var
  Outcome: TTestResult;
  Telling: ITestListener; // which the result does not hold
  Suite: TTestSuite;
  I: Integer;
begin
  Suite := nil;
  for I := Low(Suites) to High(Suites) do
    if Suites[I].ClassName = 'T' + ParamStr(1) then
      Suite := TTestSuite.Create(Suites[I]);
  if Suite = nil then
  begin
    WriteLn('usage: binding_test SUITE');
    Halt(2);
  end;
  Outcome := TTestResult.Create;
  Telling := TTelling.Create;
  Outcome.AddListener(Telling);
  Suite.Run(Outcome);
  WriteLn(Outcome.RunTests, ' tests, ', Outcome.NumberOfFailures, ' failures, ', Outcome.NumberOfErrors, ' errors');
  if (Outcome.RunTests = 0) or not Outcome.WasSuccessful then
    Halt(1);
end.
