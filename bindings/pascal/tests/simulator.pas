// A simulator of the service for tests, started as a program of its own and operated by typing.
unit simulator;

{$MODE OBJFPC}{$H+}

interface

uses
  Classes, SysUtils, Process;

type
  // What was wrong with the simulator, not with what is tested.
  ESimulator = class(Exception)
  end;

  TSimulator = class
  private
    FProcess: TProcess;
    FRecording: string;
    FRest: string;
    FSaid: string; // before it was ready
    function ReadLine(const AWaitingFor: string): string;
    procedure WriteLine(const ALine: string);
    procedure EndWithTheTest(ASender: TObject);
    procedure Launch(const AOptions: array of string);
  public
    // Starts it at the address of the environment variable TOLVEX_TEST_ADDRESS, and waits until it is ready.
    constructor Create; overload;
    // One that answers from a recording made of these replies to getweight and others: "request -> reply".
    constructor Create(const AExchanges: array of string); overload;
    destructor Destroy; override;
    // A line of the console; the lines of its answer without the "ok". Raises if it is refused.
    function Type_(const ALine: string): string;
    // Whether it runs, and what it said that nobody read, for messages of failures.
    function State: string;
    // Ends it at once, as a service that crashes.
    procedure Kill;
    // The requests that it got since it was started, oldest first, as they came over the wire. With a command,
    // only those.
    function Requests(const ACommand: string = ''): TStringList;
    // The one request with this command; raises if there is none, or more than one.
    function Request(const ACommand: string): string;
  end;

// Of the environment; raises if it is not set.
function Needed(const AVariable: string): string;
// A folder for the files of this process.
function ScratchFolder: string;

implementation

const
  LongestWait = 30000; // milliseconds

function Needed(const AVariable: string): string;
begin
  Result := GetEnvironmentVariable(AVariable);
  if Result = '' then
    raise ESimulator.Create('the environment variable ' + AVariable + ' is not set');
end;

function ScratchFolder: string;
begin
  Result := IncludeTrailingPathDelimiter(ExpandFileName(Needed('TOLVEX_TEST_FOLDER')));
  ForceDirectories(Result);
end;

{$IFDEF UNIX}
function c_prctl(AOption, AValue: PtrInt): Integer; cdecl; varargs; external 'c' name 'prctl';

// In the simulator's process before its program begins: a test that crashes must not leave its address taken.
procedure TSimulator.EndWithTheTest(ASender: TObject);
const
  ParentDeathSignal = 1; // PR_SET_PDEATHSIG
begin
  c_prctl(ParentDeathSignal, 9);
end;
{$ELSE}
procedure TSimulator.EndWithTheTest(ASender: TObject);
begin
end;
{$ENDIF}

procedure TSimulator.Launch(const AOptions: array of string);
var
  I: Integer;
  Line: string;
begin
  FProcess := TProcess.Create(nil);
  FProcess.Executable := Needed('ZELKAD_SIM');
  FProcess.Parameters.Add('--address');
  FProcess.Parameters.Add(Needed('TOLVEX_TEST_ADDRESS'));
  FProcess.Parameters.Add('--no-web');
  FProcess.Parameters.Add('--quiet');
  for I := 0 to High(AOptions) do
    FProcess.Parameters.Add(AOptions[I]);
  FProcess.Options := [poUsePipes, poStderrToOutPut];
{$IFDEF UNIX}
  FProcess.OnForkEvent := @EndWithTheTest;
{$ENDIF}
  FProcess.Execute;
  repeat
    Line := ReadLine('the simulator to be ready');
    FSaid := FSaid + Line + #10;
  until Line = 'zelkad-sim: ready';
end;

constructor TSimulator.Create;
begin
  FRecording := ScratchFolder + 'recording.jsonl';
  DeleteFile(FRecording);
  Launch(['--console', '--settling', '0', '--record', FRecording]);
end;

function Escaped(const AText: string): string;
begin
  Result := StringReplace(AText, '\', '\\', [rfReplaceAll]);
  Result := StringReplace(Result, '"', '\"', [rfReplaceAll]);
end;

constructor TSimulator.Create(const AExchanges: array of string);
var
  Lines: TStringList;
  I, Arrow: Integer;
begin
  FRecording := ScratchFolder + 'replay.jsonl';
  Lines := TStringList.Create;
  try
    Lines.Add('{"recording":"zelkad-sim","format":1,"version":"3.0.3.2"}');
    for I := 0 to High(AExchanges) do
    begin
      Arrow := Pos(' -> ', AExchanges[I]);
      Lines.Add(Format('{"number":%d,"ms":%d.0,"port":"weighing","connection":1,"request":"%s","reply":"%s"}',
        [I + 1, I + 1, Escaped(Copy(AExchanges[I], 1, Arrow - 1)), Escaped(Copy(AExchanges[I], Arrow + 4, MaxInt))]));
    end;
    Lines.SaveToFile(FRecording);
  finally
    Lines.Free;
  end;
  Launch(['--console', '--replay', FRecording]);
end;

destructor TSimulator.Destroy;
begin
  if FProcess <> nil then
    Kill;
  FProcess.Free;
  inherited Destroy;
end;

function TSimulator.State: string;
var
  Buffer: array[0..4095] of Char;
  Count: Integer;
begin
  if FProcess.Running then
    Result := 'runs'
  else
    Result := 'ended with ' + IntToStr(FProcess.ExitStatus);
  Count := FProcess.Output.NumBytesAvailable;
  if Count > SizeOf(Buffer) then
    Count := SizeOf(Buffer);
  if Count > 0 then
    Count := FProcess.Output.Read(Buffer, Count);
  Result := Result + ' and said: ' + FRest + Copy(Buffer, 1, Count);
end;

procedure TSimulator.Kill;
{$IFDEF WINDOWS}
// Wine may keep connections of a program that was killed, open and silent: there it is asked to end.
var
  Start: QWord;
begin
  if FProcess.Running then
    WriteLine('quit');
  Start := GetTickCount64;
  while FProcess.Running and (GetTickCount64 - Start < LongestWait) do
    Sleep(1);
{$ELSE}
begin
{$ENDIF}
  if FProcess.Running then
    FProcess.Terminate(9);
  FProcess.WaitOnExit;
end;

function TSimulator.ReadLine(const AWaitingFor: string): string;
var
  Start: QWord;
  Buffer: array[0..4095] of Char;
  Count, Position: Integer;
  HasEnded: Boolean;
begin
  HasEnded := False;
  Start := GetTickCount64;
  repeat
    Position := Pos(#10, FRest);
    if Position > 0 then
    begin
      Result := TrimRight(Copy(FRest, 1, Position - 1));
      Delete(FRest, 1, Position);
      Exit;
    end;
    Count := FProcess.Output.NumBytesAvailable;
    if Count > 0 then
    begin
      if Count > SizeOf(Buffer) then
        Count := SizeOf(Buffer);
      Count := FProcess.Output.Read(Buffer, Count);
      SetLength(Result, Count);
      Move(Buffer, PChar(Result)^, Count);
      FRest := FRest + Result;
    end
    else if HasEnded then
      raise ESimulator.CreateFmt('the simulator ended with %d while the test waited for %s; it said: %s',
        [FProcess.ExitStatus, AWaitingFor, FSaid + FRest])
    else if not FProcess.Running then
      HasEnded := True // and its last words may have come meanwhile
    else if GetTickCount64 - Start > LongestWait then
      raise ESimulator.Create('waited in vain for ' + AWaitingFor)
    else
      Sleep(1);
  until False;
end;

procedure TSimulator.WriteLine(const ALine: string);
var
  Line: string;
begin
  Line := ALine + #10;
  FProcess.Input.WriteBuffer(PChar(Line)^, Length(Line));
end;

function TSimulator.Type_(const ALine: string): string;
var
  First: string;
  More, Comma, I: Integer;
begin
  WriteLine(ALine);
  repeat
    First := ReadLine('the answer to "' + ALine + '"');
    if Pos('error:', First) = 1 then
      raise ESimulator.Create('"' + ALine + '": ' + First);
  until Pos('ok', First) = 1; // announcements of jobs may come between
  Result := '';
  Comma := LastDelimiter(',', First);
  More := 0;
  if (Comma > 0) and (Pos(' line', First) > Comma) then
    More := StrToIntDef(Trim(Copy(First, Comma + 1, Pos(' line', First) - Comma - 1)), 0);
  if More = 0 then
    Result := Copy(First, 4, MaxInt);
  for I := 1 to More do
    Result := Result + ReadLine('the answer to "' + ALine + '"') + #10;
end;

function Unescaped(const AText: string): string;
begin
  Result := StringReplace(AText, '\"', '"', [rfReplaceAll]);
  Result := StringReplace(Result, '\\', '\', [rfReplaceAll]);
end;

function TSimulator.Requests(const ACommand: string): TStringList;
const
  Begins = '"request":"';
  Ends = '","';
var
  Lines: TStringList;
  Stream: TFileStream;
  I, Start, Stop: Integer;
  Found: string;
begin
  Result := TStringList.Create;
  Lines := TStringList.Create;
  Stream := TFileStream.Create(FRecording, fmOpenRead or fmShareDenyNone);
  try
    Lines.LoadFromStream(Stream);
    for I := 0 to Lines.Count - 1 do
    begin
      Start := Pos(Begins, Lines[I]);
      if Start = 0 then
        Continue;
      Start := Start + Length(Begins);
      Stop := Pos(Ends, Lines[I], Start);
      // A quote of the request itself stands behind a backslash.
      while (Stop > 0) and (Lines[I][Stop - 1] = '\') do
        Stop := Pos(Ends, Lines[I], Stop + 1);
      Found := Unescaped(Copy(Lines[I], Start, Stop - Start));
      if (ACommand = '') or (Pos('{"cmd":"' + ACommand + '"', Found) = 1) then
        Result.Add(Found);
    end;
  finally
    Stream.Free;
    Lines.Free;
  end;
end;

function TSimulator.Request(const ACommand: string): string;
var
  Found: TStringList;
begin
  Found := Requests(ACommand);
  try
    if Found.Count <> 1 then
      raise ESimulator.CreateFmt('%d requests %s instead of one', [Found.Count, ACommand]);
    Result := Found[0];
  finally
    Found.Free;
  end;
end;

end.
