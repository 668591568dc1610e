// Saving a job's paper as a picture, one pixel for each dot of the print head.
import { getText, jobPath, Refusal } from './service.js';
import { element, say } from './dom.js';
import { pngOf } from './png.js';

const kBand = 2048; // rows drawn at once

export function jobFileName(job, ending) {
  return `job-${String(job.number).padStart(4, '0')}-${job.printer}.${ending}`;
}

// The simulator's pictures begin with their size: width and height in mm, and the dots as viewBox. The
// page's security policy would have the parser of documents complain about the styles within.
function parsed(text) {
  const head = /width="[^"]*" height="[^"]*" viewBox="([^"]*)"/.exec(text);
  const box = (head?.[1] ?? '').split(' ').map(Number);
  if (box.length !== 4 || !box.every(Number.isFinite)) {
    throw new Refusal('The picture of this job can not be read.', 'Save it as SVG instead.');
  }
  const [x, y, width, height] = box;
  const cutTo = (top, rows) => text.replace(head[0], `width="${Math.ceil(width)}px" height="${rows}px" viewBox="${x} ${y + top} ${Math.ceil(width)} ${rows}"`);
  return { cutTo, width: Math.ceil(width), height: Math.ceil(height) };
}

async function imageOf(svg) {
  const url = URL.createObjectURL(new Blob([svg], { type: 'image/svg+xml' }));
  try {
    const image = new Image();
    image.src = url;
    await image.decode();
    return image;
  } finally {
    URL.revokeObjectURL(url);
  }
}

async function* bandsOf({ cutTo, width, height }) {
  const canvas = element('canvas', { width, height: Math.min(kBand, height) });
  const context = canvas.getContext('2d', { willReadFrequently: true });
  for (let top = 0; top < height; top += kBand) {
    const rows = Math.min(kBand, height - top);
    context.fillStyle = '#fff';
    context.fillRect(0, 0, width, rows);
    context.drawImage(await imageOf(cutTo(top, rows)), 0, 0, width, rows);
    yield context.getImageData(0, 0, width, rows).data;
  }
}

/// The paper of a job as a PNG, 8 pixels for a millimetre.
export async function pngOfJob(number) {
  const picture = parsed(await getText(`${jobPath(number)}/paper.svg`));
  return pngOf(picture.width, picture.height, bandsOf(picture));
}

function save(blob, name) {
  const link = element('a', { href: URL.createObjectURL(blob), download: name });
  document.body.append(link);
  link.click();
  link.remove();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

export async function saveJobAsPng(job) {
  const name = jobFileName(job, 'png');
  save(await pngOfJob(job.number), name);
  say(`Saved ${name}.`);
}
