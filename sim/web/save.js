// Saving a job's paper as a picture, one pixel for each dot of the print head.
import { getText, jobPath, Refusal } from './service.js';
import { element, say } from './dom.js';
import { pngOf } from './png.js';

const kBand = 2048; // rows drawn at once

export function jobFileName(job, ending) {
  return `job-${String(job.number).padStart(4, '0')}-${job.printer}.${ending}`;
}

function parsed(text) {
  const root = new DOMParser().parseFromString(text, 'image/svg+xml').documentElement;
  const box = (root.getAttribute('viewBox') ?? '').split(/\s+/).map(Number);
  if (root.localName !== 'svg' || box.length !== 4 || !box.every(Number.isFinite)) {
    throw new Refusal('The picture of this job can not be read.', 'Save it as SVG instead.');
  }
  return { root, x: box[0], y: box[1], width: Math.ceil(box[2]), height: Math.ceil(box[3]) };
}

async function imageOf(root) {
  const url = URL.createObjectURL(new Blob([new XMLSerializer().serializeToString(root)], { type: 'image/svg+xml' }));
  try {
    const image = new Image();
    image.src = url;
    await image.decode();
    return image;
  } finally {
    URL.revokeObjectURL(url);
  }
}

async function* bandsOf({ root, x, y, width, height }) {
  const canvas = element('canvas', { width, height: Math.min(kBand, height) });
  const context = canvas.getContext('2d', { willReadFrequently: true });
  for (let top = 0; top < height; top += kBand) {
    const rows = Math.min(kBand, height - top);
    root.setAttribute('viewBox', `${x} ${y + top} ${width} ${rows}`);
    root.setAttribute('width', `${width}px`);
    root.setAttribute('height', `${rows}px`);
    context.fillStyle = '#fff';
    context.fillRect(0, 0, width, rows);
    context.drawImage(await imageOf(root), 0, 0, width, rows);
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
