// A sale: cheese is weighed in a bowl, the receipt is printed and cut, and the drawer opens. When the paper ends, the
// receipt is printed again.
// usage: node checkout.mjs [ADDRESS-OF-THE-SERVICE]
import { setTimeout as pause } from 'node:timers/promises';

import {
  JobType, Printer, PrinterType, Receipt, ResultCode, Scale, TolvexError, checkConnection, openCashDrawer, setServer,
} from 'tolvex';

const kCentsPerKg = 1890;
const kPatience = 60000;

const scale = new Scale();
const printer = new Printer(PrinterType.Ticket);

/** @param {number} cents */
const amount = (cents) => `${Math.trunc(cents / 100)}.${String(cents % 100).padStart(2, '0')}`;

/** One text at the left end of a line, another at the right end. @param {string} left @param {string} right */
const apart = (left, right, columns = 48) => left + right.padStart(columns - left.length);

async function weigh() {
  console.log('> Please put the empty bowl on the scale.');
  await scale.waitStable({ timeout: kPatience, where: ({ net }) => net !== null && net > 0 });
  const tare = await scale.tare();
  console.log(`  tare ${tare ? tare.tareText : 'taken'}`);
  console.log('> Please put the cheese into the bowl.');
  const reading = await scale.waitStable({ timeout: kPatience, where: ({ net }) => net !== null && net > 0 });
  console.log(`  net ${reading.netText} kg`);
  await scale.clearTare();
  return /** @type {number} */ (reading.netUnits); // whole ten-thousandths: nothing is lost when it is multiplied
}

/** @param {Receipt} receipt */
async function print(receipt) {
  for (;;) {
    try {
      await receipt.print(JobType.TicketCut);
      return;
    } catch (error) {
      if (!(error instanceof TolvexError) || error.code !== ResultCode.OutOfPaper) throw error;
      console.log(`! ${error.text}: ${error.remedy}`);
    }
    const end = Date.now() + kPatience;
    while (!(await printer.status()).ready) {
      if (Date.now() > end) throw new Error('Nobody put in paper.');
      await pause(200);
    }
    await printer.cut(); // what came out before the paper ended
  }
}

async function sell() {
  setServer(process.argv[2] ?? '127.0.0.1');
  if (!(await checkConnection())) throw new Error('The service does not answer. Is zelkad (or zelkad-sim) running?');
  const { unit, maxRange, resolution } = await scale.info();
  console.log(`Scale up to ${Math.max(...maxRange)} ${unit}, in steps of ${resolution[0]} ${unit} and more`);

  const units = await weigh();
  const cents = Math.round((units * kCentsPerKg) / 10000);
  await print(new Receipt()
    .wrapped('CHEESE & MORE', { size: 48 })
    .blank()
    .wrapped('Mountain cheese')
    .wrapped(apart(`  ${(units / 10000).toFixed(3)} kg x ${amount(kCentsPerKg)}/kg`, amount(cents)))
    .wrapped('-'.repeat(48))
    .wrapped(apart('TOTAL', amount(cents), 24), { size: 48 })
    .blank()
    .wrapped('Thank you!'));
  console.log('Receipt printed and cut.');
  await openCashDrawer();
  console.log('Drawer opened.');
}

try {
  await sell();
} catch (error) {
  console.log(/** @type {Error} */ (error).message);
  process.exitCode = 1;
}
