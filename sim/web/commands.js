// The commands that the service knows, by port.

const kBoth = ['getloglevel', 'setloglevel'];

export const kCommands = {
  weighing: ['getbaseinfo', 'getweight', 'setzero', 'setpretare', 'settarebykey', 'clear_tare', 'getLCVersion', 'checkConnection', ...kBoth],
  printing: ['setOverloadAlarm', 'printtext', 'print_text_width', 'printbmpfile', 'beginPrint', 'printblanks', 'cutPaper',
    'calibrateLabelGap', 'calibrateOutOfPaper', 'printerStatus', 'getPrinterList', 'getprinterversion', 'opencashbox',
    'setpaperwidth', 'setGapType', 'setdirection', 'setTextWrapMode', 'setLeftMargin', 'setRightMargin', 'setPrtAutoPrint',
    'setPaperOffset', 'setcontrast', 'setprintspeed', 'setRollback', 'settakepapersensor', ...kBoth],
};

export function commandsOf(port) {
  return port === 'both' ? [...new Set([...kCommands.weighing, ...kCommands.printing])] : kCommands[port];
}
