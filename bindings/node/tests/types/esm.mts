// Uses everything, for the compiler alone: it has to pass with --strict.
import tolvex, {
  CharacterError, JobType, LibraryNotLoadedError, Printer, PrinterSettings, PrinterType, Receipt, ResultCode, Scale, TolvexError,
  UnreadableError, WaitTimeoutError, checkConnection, checkConnectionSync, constants, explain, getServiceLogLevel,
  getServiceLogLevelSync, load, openCashDrawer, openCashDrawerSync, printers, printersSync, queueCharset, raw, setServer,
  setServiceLogLevel, setServiceLogLevelSync,
} from 'tolvex';
import type { Explanation, PrinterStatus, Raw, Reading, ScaleInfo, ScaleState, Tare } from 'tolvex';

export async function service(): Promise<void> {
  const path: string = load() + load('/opt/libtolvex_dll.so');
  setServer('192.168.1.20');
  const alive: boolean = (await checkConnection()) && checkConnectionSync();
  const names: string[] = [...(await printers()), ...printersSync(), path, queueCharset(), String(alive)];
  await openCashDrawer();
  openCashDrawerSync();
  const level: string = (await getServiceLogLevel('print')) + getServiceLogLevelSync('loadcell');
  await setServiceLogLevel('print', 2);
  setServiceLogLevelSync('loadcell', level + names.join());
  // @ts-expect-error there is no such module
  await getServiceLogLevel('drawer');
}

export async function weigh(signal: AbortSignal): Promise<number> {
  const scale = new Scale();
  const reading: Reading = await scale.waitStable({ timeout: 5000, interval: 50, signal, where: (one) => one.net !== null });
  const state: ScaleState = scale.readSync().state;
  const info: ScaleInfo = await scale.info();
  const tare: Tare | null = (await scale.tare()) ?? scale.tareSync() ?? (await scale.clearTare()) ?? scale.clearTareSync();
  await scale.zero();
  scale.zeroSync();
  await scale.setOverloadAlarm(true);
  scale.setOverloadAlarmSync(false);
  scale.highResolution = !scale.highResolution;
  const texts: string[] = [await scale.rawCommand('x', { parameters: 'y', timeout: 1 }), scale.rawCommandSync('x')];
  const version: Record<string, unknown> = { ...(await scale.version()), ...scale.versionSync() };
  for await (const one of scale.watch({ interval: 100, signal })) if (one.stable && one.zero && !one.tareActive) break;
  // @ts-expect-error a net weight may be missing
  const net: number = reading.net;
  return net + info.resolution[0] + info.thousandths.minRange + (tare?.tareUnits ?? 0) + texts.length + state.length +
    Object.keys(version).length + scale.infoSync().maxRange[0] + (await scale.read()).netUnits!;
}

export async function print(): Promise<PrinterStatus> {
  const printer = new Printer(PrinterType.Ticket);
  await printer.printText('x', { size: 24 });
  printer.printTextSync('x');
  await printer.printWrapped('x', { size: 24, width: 72 });
  printer.printWrappedSync('x');
  await printer.printImage('x.bmp', { angle: 90 });
  printer.printImageSync('x.bmp');
  await Promise.all([printer.cut(), printer.feed(), printer.calibrate(), printer.calibratePaperEnd(), printer.setPaperWidth(72),
    printer.setGapType(1), printer.setDirection(0), printer.setTextWrapMode(1), Printer.feedBlank(5)]);
  printer.cutSync();
  Printer.feedBlankSync(5);
  const settings = new PrinterSettings('Ticket');
  await Promise.all([settings.setLeftMargin(0), settings.setRightMargin(0), settings.setPaperOffset(0), settings.setContrast(50),
    settings.setSpeed(100), settings.setAutoPrint(true), settings.setRollback(false), settings.setTakeUpSensor(true)]);
  await settings.rawCommand('beep', { number: 3, parameters: '', timeout: 100 });
  const firmware: Record<string, unknown> = await settings.firmwareVersion();
  const receipt = new Receipt({ replace: true }).text('x', { size: 24 }).wrapped('y', { width: 40 }).blank().image('z.bmp', { angle: 180 });
  await receipt.print(JobType.TicketCut);
  receipt.printSync();
  await receipt.printLabel();
  receipt.printLabelSync();
  // @ts-expect-error a size is a number
  receipt.text('x', { size: '24' });
  return { ...(await printer.status()), text: String(firmware) + printer.type + settings.name + receipt.length };
}

export function told(error: unknown): string {
  if (error instanceof UnreadableError) return error.unreadable + error.code;
  if (error instanceof TolvexError) {
    if (error.code === ResultCode.OutOfPaper) return error.remedy;
    return `${error.operation} ${error.codeName} ${error.text} ${error.meaning} ${error.reply ?? ''} ${error.message}`;
  }
  if (error instanceof LibraryNotLoadedError) return error.tried.map(({ file, problem }) => `${file} ${problem}`).join();
  if (error instanceof WaitTimeoutError) return `${error.timeout} ${error.lastReading?.netText}`;
  if (error instanceof CharacterError) return error.character + error.position + error.charset;
  const explanation: Explanation = explain(2006);
  return explanation.remedy;
}

export async function exports(): Promise<number> {
  const all: Raw = raw;
  const record = Buffer.alloc(24);
  const verdict: number = all.read_standard(record) + (await all.read_standard.async(record));
  const code: number = raw.printTextById('x', 24, 1) + raw.printTextById(Buffer.from('x\0'), 24, 1) + raw.printTextById(null, 24, 1);
  // @ts-expect-error the size is missing
  raw.getLCVersion(record);
  return verdict === constants.TOLVEX_OK ? code : raw.getLastErrCode() + tolvex.raw.OpenDisplay_stdcall();
}
