import { Raw, ResultCode, constants } from './lib/exports';

export { Raw, Export, Text } from './lib/exports';
export { ResultCode, constants };

// ---- The library and the service ----

/**
 * Loads the library unless it is loaded, and tells its path. Nobody has to call this: the first function that needs the
 * library does. Without a path: what TOLVEX_LIBRARY names, otherwise what is in this package, beside the
 * application's script, beside the executable, and where the system looks.
 * @throws LibraryNotLoadedError
 */
export declare function load(path?: string): string;

/**
 * Takes the dotted IPv4 address as that of the service, before anything else is called: connections that exist keep
 * theirs. Without it, zelkad_ip_config.ini beside the executable (node.exe, electron.exe) says it, or else it is 127.0.0.1.
 * @throws RangeError for what is no such address
 */
export declare function setServer(ipv4: string): void;

/** Whether the service answers, whatever it answers. */
export declare function checkConnection(): Promise<boolean>;
export declare function checkConnectionSync(): boolean;

/** The names of the printers. */
export declare function printers(): Promise<string[]>;
export declare function printersSync(): string[];

/** Opens the cash drawer. Whether it is closed again nobody can ask. */
export declare function openCashDrawer(): Promise<void>;
export declare function openCashDrawerSync(): void;

/** What the service logs of printing ("print") or weighing ("loadcell"). */
export type ServiceModule = 'print' | 'loadcell';
export declare function getServiceLogLevel(module: ServiceModule): Promise<string>;
export declare function getServiceLogLevelSync(module: ServiceModule): string;
export declare function setServiceLogLevel(module: ServiceModule, level: string | number): Promise<void>;
export declare function setServiceLogLevelSync(module: ServiceModule, level: string | number): void;

/** The character set in which the texts of receipts have to be possible: "UTF-8", "the code page 1252", "GBK" ... */
export declare function queueCharset(): string;

// ---- The scale ----

/** How the scale is: only a "weight" has a net weight. */
export type ScaleState = 'weight' | 'underLoad' | 'overLoad' | 'invalid';

export interface Reading {
  state: ScaleState;
  /** Net weight in the scale's unit; null if the state is not "weight". */
  net: number | null;
  /** The same as a whole number of ten-thousandths of the unit, for sums and prices that come out exactly. */
  netUnits: number | null;
  /** The same as it came, for example "00.4820" or "-12.500". */
  netText: string | null;
  /** The tare that is in force, 0 without one. */
  tare: number | null;
  tareUnits: number | null;
  tareText: string | null;
  /** The weight has settled. Only such a weight may be sold. */
  stable: boolean;
  /** Nothing is on the scale. */
  zero: boolean;
  /** A tare is subtracted. */
  tareActive: boolean;
}

export interface Tare {
  tare: number;
  /** In ten-thousandths of the unit. */
  tareUnits: number;
  tareText: string;
}

export interface ScaleInfo {
  /** Capacity of each of the three ranges, in the unit; 0 for a range that is not there. */
  maxRange: number[];
  /** Least weight, in the unit. */
  minRange: number;
  maxTare: number;
  maxPresetTare: number;
  /** Division of each range, in the unit. */
  resolution: number[];
  /** The same in whole thousandths of the unit. */
  thousandths: { minRange: number; maxTare: number; maxPresetTare: number; resolution: number[] };
  /** For example "kg". */
  unit: string;
  systemVersion: string;
}

export interface WaitOptions {
  /** How long to wait, in milliseconds; 30000 if not given. */
  timeout?: number;
  /** Time between two readings, in milliseconds; 100 if not given. */
  interval?: number;
  signal?: AbortSignal;
  /** What else the reading has to be like, for example net > 0. */
  where?: (reading: Reading) => boolean;
}

export interface WatchOptions {
  /** Time between two readings, in milliseconds; 200 if not given. */
  interval?: number;
  signal?: AbortSignal;
}

/** The scale. There is one; all objects of this class are the same scale. */
export declare class Scale {
  /** @throws TolvexError; under load, over load and no valid weight are states of the reading. */
  read(): Promise<Reading>;
  readSync(): Reading;

  info(): Promise<ScaleInfo>;
  infoSync(): ScaleInfo;

  /** Sets the scale to zero. */
  zero(): Promise<void>;
  zeroSync(): void;

  /** Takes what lies on the scale as the tare, and tells it; null where the library does not tell it. */
  tare(): Promise<Tare | null>;
  tareSync(): Tare | null;

  /** Clears the tare, and tells what is left of it. */
  clearTare(): Promise<Tare | null>;
  clearTareSync(): Tare | null;

  /** What the weighing service tells of its version. */
  version(): Promise<Record<string, unknown>>;
  versionSync(): Record<string, unknown>;

  setOverloadAlarm(on: boolean): Promise<void>;
  setOverloadAlarmSync(on: boolean): void;

  /**
   * Sends any command to the weighing service, and gives its reply. A TolvexError has the reply, too. A reply after the
   * timeout (40000 ms if not given) is taken for that of the next command: do not trust weights any more then.
   */
  rawCommand(command: string, options?: { parameters?: string; timeout?: number }): Promise<string>;
  rawCommandSync(command: string, options?: { parameters?: string; timeout?: number }): string;

  /** Whether net weights are read in finer steps, where the service has them. Holds for the whole process. */
  highResolution: boolean;

  /**
   * Reads until a weight is stable.
   * @throws WaitTimeoutError with the last reading; what the signal was aborted with; TolvexError
   */
  waitStable(options?: WaitOptions): Promise<Reading>;

  /** One reading after the other, until the loop ends or the signal is aborted. */
  watch(options?: WatchOptions): AsyncGenerator<Reading, void, undefined>;
}

// ---- Printing ----

export declare const PrinterType: {
  readonly Label: 0;
  readonly Ticket: 1;
  readonly Third: 2;
  /** Whichever the service has as its default. */
  readonly Default: 100;
};

export interface PrinterStatus {
  ready: boolean;
  /** 0, or 2001 to 2010. */
  code: number;
  /** For example "OutOfPaper". */
  codeName: string;
  text: string;
  meaning: string;
  remedy: string;
}

export interface TextOptions {
  /** Height of the characters in dots (an eighth of a millimetre), 12 to 72; 24 if not given. */
  size?: number;
}

export interface WrappedOptions extends TextOptions {
  /** Width of the paper in millimetres, 0 to 80; 72 if not given. */
  width?: number;
}

export interface ImageOptions {
  /** 0, 90, 180 or 270. */
  angle?: number;
}

/** A printer, addressed by its type. What it prints itself goes out at once, past the receipt. */
export declare class Printer {
  constructor(type?: number);
  readonly type: number;

  /** @throws TolvexError for everything that is no state of a printer */
  status(): Promise<PrinterStatus>;
  statusSync(): PrinterStatus;

  /** Prints a line of at most 2048 bytes of UTF-8. */
  printText(text: string, options?: TextOptions): Promise<void>;
  printTextSync(text: string, options?: TextOptions): void;

  /** Prints a text of any length on paper of a width. */
  printWrapped(text: string, options?: WrappedOptions): Promise<void>;
  printWrappedSync(text: string, options?: WrappedOptions): void;

  /** Prints an image file, which the service opens. */
  printImage(path: string, options?: ImageOptions): Promise<void>;
  printImageSync(path: string, options?: ImageOptions): void;

  cut(): Promise<void>;
  cutSync(): void;

  /** Feeds a distance of 13. */
  feed(): Promise<void>;
  feedSync(): void;

  /** Measures the gap between the labels. */
  calibrate(): Promise<void>;
  calibrateSync(): void;

  /** Calibrates the sensor for the end of the paper. */
  calibratePaperEnd(): Promise<void>;
  calibratePaperEndSync(): void;

  setPaperWidth(millimetres: number): Promise<void>;
  setPaperWidthSync(millimetres: number): void;
  setGapType(value: number): Promise<void>;
  setGapTypeSync(value: number): void;
  setDirection(value: number): Promise<void>;
  setDirectionSync(value: number): void;
  setTextWrapMode(value: number): Promise<void>;
  setTextWrapModeSync(value: number): void;

  /** Feeds blank paper on the default printer; 1 to 1000. */
  static feedBlank(distance: number): Promise<void>;
  static feedBlankSync(distance: number): void;
}

export interface RawPrinterOptions {
  /** The request's "intParam"; 0 if not given. */
  number?: number;
  /** The request's "paramList"; left out if empty. */
  parameters?: string;
  /** The longest wait for the reply, in milliseconds; 40000 if not given. A reply after that is taken for the next one. */
  timeout?: number;
}

/** Settings of a printer, addressed by its name. Values go out as they are: their meaning and range are the service's. */
export declare class PrinterSettings {
  constructor(name: string);
  readonly name: string;

  setLeftMargin(dots: number): Promise<void>;
  setLeftMarginSync(dots: number): void;
  setRightMargin(dots: number): Promise<void>;
  setRightMarginSync(dots: number): void;
  setPaperOffset(offset: number): Promise<void>;
  setPaperOffsetSync(offset: number): void;
  setContrast(contrast: number): Promise<void>;
  setContrastSync(contrast: number): void;
  setSpeed(speed: number): Promise<void>;
  setSpeedSync(speed: number): void;
  setAutoPrint(on: boolean): Promise<void>;
  setAutoPrintSync(on: boolean): void;
  setRollback(on: boolean): Promise<void>;
  setRollbackSync(on: boolean): void;
  setTakeUpSensor(on: boolean): Promise<void>;
  setTakeUpSensorSync(on: boolean): void;

  /** What the service tells of the printer's firmware. */
  firmwareVersion(): Promise<Record<string, unknown>>;
  firmwareVersionSync(): Record<string, unknown>;

  /** Sends any command to the printing service, and gives its reply. A TolvexError has the reply, too. */
  rawCommand(command: string, options?: RawPrinterOptions): Promise<string>;
  rawCommandSync(command: string, options?: RawPrinterOptions): string;
}

/** What becomes of a receipt. "Ticket" is printer type 1, "Label" 0, "Fllp" 2. */
export declare const JobType: {
  /** Print. */
  readonly Ticket: 0;
  /** Print labels. */
  readonly Label: 2;
  /** Print, then feed 13 mm. */
  readonly TicketFeed: 4;
  readonly ImageTicket: 7;
  /** Print, then cut. */
  readonly TicketCut: 8;
  readonly FpFeed: 104;
  readonly FpCut: 105;
  readonly ImageLabel: 204;
  readonly DotLabel: 205;
  /** Print labels, then feed 13 mm. */
  readonly LabelFeedAuto: 206;
  /** Print on tickets, then cut. */
  readonly FlpCut: 207;
  readonly LabelFeed: 208;
  readonly FllpFeed: 304;
  readonly FllpCut: 305;
};

/**
 * Lines and images that are printed together. Nothing goes to the library before print, which converts and checks all of
 * it first. The object keeps its lines, so that it can be printed again after a failure.
 */
export declare class Receipt {
  /** replace: "?" takes the place of characters that the system's character set does not have. */
  constructor(options?: { replace?: boolean });
  /** Number of texts and images. */
  readonly length: number;

  /** Adds a text, of one line or several. A line has at most 2048 bytes of UTF-8. */
  text(text: string, options?: TextOptions): this;
  /** Adds a text of any length, which is wrapped. */
  wrapped(text: string, options?: WrappedOptions): this;
  /** Adds an empty line. */
  blank(options?: TextOptions): this;
  /** Adds an image file. It has to be on this machine, and to be readable for the service. */
  image(path: string, options?: ImageOptions): this;

  /**
   * Prints; JobType.TicketCut if not given. Without lines, a job with a cut or a feed just cuts or feeds.
   * @throws CharacterError before anything is printed; TolvexError when the job failed. What came out before that is
   * with the printer: cut it off before the receipt is printed again.
   */
  print(jobType?: number): Promise<void>;
  printSync(jobType?: number): void;
  printLabel(): Promise<void>;
  printLabelSync(): void;
}

// ---- Errors ----

/** What is known of a result code. */
export interface Explanation {
  code: number;
  name: string;
  text: string;
  meaning: string;
  remedy: string;
}
export declare function explain(code: number): Explanation;

/** A command that did not succeed. The message holds all of it. */
export declare class TolvexError extends Error {
  readonly name: string;
  /** Name of the export. */
  readonly operation: string;
  readonly code: number;
  /** For example "OutOfPaper". */
  readonly codeName: string;
  readonly text: string;
  readonly meaning: string;
  /** What to do about it. */
  readonly remedy: string;
  /** The reply to a raw command, if one came. */
  readonly reply?: string;
}

/** A reply that holds something else than it has to. */
export declare class UnreadableError extends TolvexError {
  readonly unreadable: string;
}

/** The library could not be loaded; the message tells each file that was tried. */
export declare class LibraryNotLoadedError extends Error {
  readonly tried: { file: string; problem: string }[];
}

/** No reading was as it was waited for within the time. */
export declare class WaitTimeoutError extends Error {
  readonly timeout: number;
  readonly lastReading: Reading | null;
}

/** A text holds a character that the system's character set does not have. */
export declare class CharacterError extends RangeError {
  readonly character: string;
  readonly position: number;
  readonly charset: string;
}

// ---- The raw layer ----

/** Every export of the library, under its own name. */
export declare const raw: Raw;
