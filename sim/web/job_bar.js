// What can be done with the chosen job: reading, copying, saving, finding its requests.
import { getText, jobPath } from './service.js';
import { copyText } from './clipboard.js';
import { byId, element, say, setAttribute, setText } from './dom.js';
import { openDialog } from './dialog.js';
import { attempt, onClick } from './problem.js';
import { jobFileName, saveJobAsPng } from './save.js';
import { clock, jobState, length } from './text.js';

const kButtons = ['job-view', 'job-copy', 'job-png', 'job-requests'];

async function viewText(number) {
  const text = await getText(`${jobPath(number)}/paper.txt`);
  const copy = element('button', { type: 'button' }, 'Copy text');
  copy.addEventListener('click', () => attempt(copy, () => copied(text, number)));
  openDialog(`Text of job ${number}`, [element('pre', { class: 'paper-text', tabIndex: 0, 'aria-label': `Text of job ${number}` }, text || 'Nothing that can be read.')], [copy]);
}

async function copied(text, number) {
  await copyText(text);
  say(`The text of job ${number} is copied.`);
}

/// Returns what shows a job, or null, in the bar.
export function setUpJobBar(store, choice) {
  let chosen = null;
  onClick(byId('job-view'), () => viewText(chosen));
  onClick(byId('job-copy'), async () => copied(await getText(`${jobPath(chosen)}/paper.txt`), chosen));
  onClick(byId('job-png'), () => saveJobAsPng(store.jobs.get(chosen)));
  onClick(byId('job-requests'), () => choice.filterByJob(chosen));
  return {
    show(number) {
      chosen = number;
      const job = store.jobs.get(number);
      for (const id of kButtons) byId(id).disabled = !job;
      const save = byId('job-svg');
      setAttribute(save, 'aria-disabled', !job);
      if (!job) {
        save.removeAttribute('href');
        setText(byId('job-title'), 'No job yet');
        return;
      }
      save.download = jobFileName(job, 'svg');
      setAttribute(save, 'href', `${jobPath(number)}/paper.svg?download=1`);
      setText(byId('job-title'), `Job ${number} on ${job.printer}: ${clock(job.began_at)}, ${length(job.length_mm)}, ${jobState(job)}`);
    },
  };
}
