// PNG files of any length. A canvas has a largest size that long receipts exceed, so the rows come in
// bands, and the file is put together here.

const kSignature = Uint8Array.of(0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a);
const kChannels = 3;

const kCrcTable = Uint32Array.from({ length: 256 }, (_, byte) => {
  let crc = byte;
  for (let bit = 0; bit < 8; ++bit) crc = crc & 1 ? 0xedb88320 ^ (crc >>> 1) : crc >>> 1;
  return crc;
});

function crcOf(bytes) {
  let crc = 0xffffffff;
  for (const byte of bytes) crc = kCrcTable[(crc ^ byte) & 0xff] ^ (crc >>> 8);
  return (crc ^ 0xffffffff) >>> 0;
}

function chunk(type, data) {
  const bytes = new Uint8Array(data.length + 12);
  const view = new DataView(bytes.buffer);
  view.setUint32(0, data.length);
  bytes.set([...type].map((letter) => letter.charCodeAt(0)), 4);
  bytes.set(data, 8);
  view.setUint32(bytes.length - 4, crcOf(bytes.subarray(4, bytes.length - 4)));
  return bytes;
}

function header(width, height) {
  const data = new Uint8Array(13);
  const view = new DataView(data.buffer);
  view.setUint32(0, width);
  view.setUint32(4, height);
  data.set([8, 2, 0, 0, 0], 8); // 8 bits of red, green and blue
  return chunk('IHDR', data);
}

// Rows of RGBA become rows of RGB, each with a filter byte before it: 2, difference to the row above,
// since most rows of a receipt are like the one above. `above` is changed to the last row.
function filtered(rgba, width, above) {
  const rows = rgba.length / (width * 4);
  const out = new Uint8Array(rows * (width * kChannels + 1));
  let to = 0;
  let from = 0;
  for (let row = 0; row < rows; ++row) {
    out[to++] = 2;
    for (let i = 0; i < width * kChannels; i += kChannels, from += 4) {
      for (let channel = 0; channel < kChannels; ++channel) {
        const value = rgba[from + channel];
        out[to++] = value - above[i + channel];
        above[i + channel] = value;
      }
    }
  }
  return out;
}

/// A PNG of rows that `bandsOf` yields from the top as arrays of RGBA, each of whole rows.
export async function pngOf(width, height, bandsOf) {
  const stream = new CompressionStream('deflate');
  const chunks = [];
  const collecting = (async () => {
    for (const reader = stream.readable.getReader(); ;) {
      const { done, value } = await reader.read();
      if (done) return;
      chunks.push(chunk('IDAT', value));
    }
  })();
  const writer = stream.writable.getWriter();
  const above = new Uint8Array(width * kChannels);
  for await (const rgba of bandsOf) await writer.write(filtered(rgba, width, above));
  await Promise.all([writer.close(), collecting]);
  return new Blob([kSignature, header(width, height), ...chunks, chunk('IEND', new Uint8Array(0))], { type: 'image/png' });
}
