// The browser that is driven: Chromium without what shows it on a screen, which takes half the time.
import { createRequire } from 'node:module';
import path from 'node:path';

export function launchBrowser() {
  const modules = process.env.TOLVEX_NODE_MODULES;
  if (!modules) throw new Error('TOLVEX_NODE_MODULES is not set. Start these tests by CTest, or see tests/web/CMakeLists.txt.');
  const { chromium } = createRequire(path.join(modules, 'from-here.js'))('playwright-core');
  return chromium.launch({ executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium-headless-shell', args: ['--no-sandbox', '--disable-gpu'] });
}
