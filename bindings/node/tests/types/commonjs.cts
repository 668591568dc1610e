// The same package, as CommonJS has it.
import tolvex = require('tolvex');

const { Scale, Receipt, JobType } = tolvex;

export async function sell(): Promise<string> {
  const scale: tolvex.Scale = new Scale();
  const reading: tolvex.Reading = await scale.read();
  const receipt: tolvex.Receipt = new Receipt();
  await receipt.text(reading.netText ?? '').print(JobType.TicketCut);
  try {
    await tolvex.openCashDrawer();
  } catch (error) {
    if (error instanceof tolvex.TolvexError) return error.remedy;
  }
  const raw: tolvex.Raw = tolvex.raw;
  return String(raw.getLastErrCode());
}
