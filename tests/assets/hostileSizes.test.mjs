// Large documents made to cost a parser more than their length: each of up to the largest size of a source has to be
// answered, not cut off by the process's clock. Nothing here measures time; death by the clock is what fails.

import assert from 'node:assert/strict';
import { test } from 'node:test';

import { renderRequest, run } from './support/renderer.mjs';

const largest = 524_288;
const moderate = 131_072;

const fill = (unit, size) => unit.repeat(Math.floor(size / Buffer.byteLength(unit)));
const nest = (opening, closing, size) => {
  const depth = Math.floor(size / (opening.length + closing.length));
  return opening.repeat(depth) + closing.repeat(depth);
};
/** Numbered units, for what only differs costs. */
const numbered = (unit, size) => {
  let text = '';
  for (let i = 0; text.length < size - 64; i++) text += unit(i);
  return text;
};

const markdownUnits = ['[', ']', '![', '[a](', '[a]', '[a][', '](', '[^', '[^a]', '[^a]: ', '(', '<', '<a ', '<a href="', '<!--', '<![CDATA[', '<?',
  '</', '&', '&#', '&amp', '&#x1;', '*', '**', '_', '*a', '*a ', '**a_', 'a**b_', '~', '~~', '~~a ', '`', '`a', '``a`', '\\', '\\`', '$', '$$', '$a',
  '$a ', '$a$', '$a$ ', '\\(', ':', '@', 'a@', 'a@b', 'a@b.', 'http://', 'www.', 'http://a.', 'www.a.b ', 'http://a.b(', '|', '|a', '|\n', '|a|\n|-|\n',
  '> ', '>', '> a\n', '>\n', '- ', '- a\n', '-\n', '1. ', '1. a\n\n', '* * ', '+', '#', '# a\n', '#\n', '=\n', 'a\n=\n', '-', '---\n', '```\n', '~~~\n',
  '```a\n', '    ', '    a\n', '\t', ' ', '\n', ' \n', 'a\n', 'a\n\n', 'a  \n', '<div>\n', '<div>\n\n', '<b>', '<b>a</b>', '</b>', '<p><b>', '<table><tr><td>',
  '<details>', '[a]: b\n', '[a]: <', '[a]: b "', '- [ ] a\n', '- [x]', 'a\u0300', '\ud55c', '\u{1f600}', '\u2028', '\r', '\0', '-a: b\n', '"', "'", '--', '...',
  '> - ', '- > ', '> 1. ', '![a](b)', '[![a](b)](c)', '<http://a>', '<a@b.c>', '\\\n', 'a&lt;'];

const documents = [
  ['brackets in brackets', nest('[', ']', moderate)],
  ['links in links', nest('[', '](a)', moderate)],
  ['images in images', nest('![', '](a)', moderate)],
  ['emphasis in emphasis', nest('*a ', ' a*', moderate)],
  ['emphasis of two kinds', nest('*a _a ', ' a_ a*', moderate)],
  ['parentheses in a destination', `[a](${nest('(', ')', moderate)})`],
  ['quotations that grow', numbered((i) => `${'>'.repeat(i % 500)}a\n`, moderate)],
  ['lists that grow', numbered((i) => `${' '.repeat(i % 300)}- a\n`, moderate)],
  ['definitions and as many references', numbered((i) => `[a${i}]: b\n\n[a${i}]\n\n`, largest)],
  ['notes and as many references', numbered((i) => `[^a${i}]: b\n\na[^a${i}]\n\n`, largest)],
  ['notes in notes', numbered((i) => `[^a${i}]: b[^a${i + 1}]\n\n`, largest) + '[^a0]'],
  ['one note, many references', `[^a]: b\n\n${fill('c[^a] ', largest - 16)}`],
  ['headings of one text', fill('# a\n', largest)],
  ['headings of numbered texts', numbered((i) => `# a-${i}\n# a\n`, largest)],
  ['runs of grave accents that differ', numbered((i) => `${'`'.repeat((i % 700) + 1)}a`, largest)],
  ['runs of stars that differ', numbered((i) => `${'*'.repeat((i % 70) + 1)}a `, largest)],
  ['fences that differ', numbered((i) => `${'`'.repeat((i % 70) + 3)}\n`, largest)],
  ['a table of one wide row', `|${fill('a|', moderate)}\n|${fill('-|', moderate)}\n|${fill('b|', moderate)}\n`],
  ['a wide table of many short rows', `|${fill('a|', 2_000)}\n|${fill('-|', 2_000)}\n${fill('|b\n', moderate)}`],
  ['front matter without an end', `---\n${fill('a: b\n', largest - 8)}`],
  ['front matter of many keys', `---\n${numbered((i) => `a${i}: b\n`, largest - 16)}---\ntext`],
  ['front matter of a deep mapping', `---\n${numbered((i) => `${' '.repeat(i % 500)}a:\n`, moderate)}---\ntext`],
  ['front matter of a long list', `---\na: [${fill('b, ', largest - 32)}]\n---\ntext`],
  ['front matter of a long key', `---\n${fill('a', largest - 16)}: b\n---\ntext`],
  ['formulas that differ', numbered((i) => `$a_{${i}}$ `, largest)],
  ['a formula of deep groups', `$${nest('{', '}', moderate)}$`],
  ['a formula of deep fractions', `$$${nest('\\frac{1}{', '}', moderate)}$$`],
  ['a formula that defines itself', '$\\def\\a{\\a\\a}\\a$ $$\\def\\a{aaaaaaaaaa}\\def\\b{\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a}\\def\\c{\\b\\b\\b\\b\\b\\b\\b\\b\\b\\b}\\c\\c\\c$$'],
  ['formulas that open much', fill('$\\left(\\begin{matrix}', largest)],
  ['code in many languages', ['js', 'cpp', 'python', 'html', 'swift', 'rust', 'perl', 'markdown', 'latex', 'php'].map((name) =>
    `\`\`\`${name}\n${fill('a = "b" + `${c}` // d\n', 40_000)}\`\`\`\n`).join('')],
  ['blocks of code in names that differ', numbered((i) => `\`\`\`a${i}\nb\n\`\`\`\n`, largest)],
  ['small blocks of code in all languages', fill(['js', 'cpp', 'py', 'html', 'swift', 'rust', 'perl', 'md', 'tex', 'php', 'sql', 'css', 'go', 'java', 'kt', 'rb']
    .map((name) => `\`\`\`${name}\nlet a = "b" // c\n\`\`\`\n`).join(''), largest)],
];

const markupDocuments = [
  ['elements in elements', nest('<div>', '</div>', largest)],
  ['formatting in formatting', nest('<b><i>', '</i></b>', largest)],
  ['elements that are never closed', fill('<p><b><i><a href="#">', largest)],
  ['end tags that nothing opened', `${fill('<div>', moderate)}${fill('</p></b></table>', moderate)}`],
  ['dropped elements in dropped elements', nest('<svg><math>', '</math></svg>', largest)],
  ['dropped elements that are never closed', fill('<style><script>', largest)],
  ['table cells that are never closed', fill('<table><tr><td>', largest)],
  ['list items that are never closed', fill('<ul><li>', largest)],
  ['one tag of many attributes', `<a ${numbered((i) => `a${i}=b `, largest)}>`],
  ['one tag of one attribute, often', `<a ${fill('id=b ', largest - 8)}>`],
  ['one long attribute', `<a title="${fill('a&lt;', largest - 16)}">`],
  ['one long identifier', `<a id="${fill('a ', largest - 16)}">`],
  ['one long address', `<a href="https://a.example/${fill('a%', largest - 64)}">text</a>`],
  ['one long fragment', `<a href="#${fill('%E3%81', largest - 64)}">text</a>`],
  ['one long address of an image', `<img src="data:image/png;base64,${fill('A', largest - 64)}">`],
  ['a comment without an end', `<!--${fill('--', largest - 8)}`],
  ['comments that nearly end', fill('<!-- --', largest)],
  ['marked data', fill('<![CDATA[ ]]', largest)],
  ['references', fill('&CounterClockwiseContourIntegral;', largest)],
  ['references that are none', fill('&CounterClockwiseContourIntegra', largest)],
  ['less-than signs', fill('<', largest)],
  ['tags that never end', fill('<a b="', largest)],
  ['tags of tags', fill('<a<', largest)],
  ['titles', fill('<title>a</title>', largest)],
  ['canonical links', fill('<link rel=canonical href=a>', largest)],
  ['blanks', fill(' ', largest)],
  ['line ends in pre', `<pre>${fill('\n', largest - 8)}`],
];

/** How a run ends. What costs too much dies by the clock every time; on a busy machine anything may die of it once. */
async function ending(request) {
  for (let attempt = 1; ; attempt++) {
    const ended = await run(request);
    if (ended.signal === null || attempt === 3) return ended;
  }
}

async function answers(format, name, text, fields) {
  assert.ok(Buffer.byteLength(text) <= largest, `${name} is too long for a source`);
  const ended = await ending(renderRequest(format, text, fields));
  assert.equal(ended.signal, null, `${name} was cut off by the clock`);
  assert.equal(ended.status, 0, `${name}: ${ended.output.slice(0, 200)}`);
}

for (const unit of markdownUnits) {
  test(`Markdown of nothing but ${JSON.stringify(unit)} is answered`, () => answers('markdown', unit, fill(unit, moderate)));
}
for (const [name, text] of documents) {
  test(`Markdown with ${name} is answered`, () => answers('markdown', name, text));
}
for (const [name, text] of markupDocuments) {
  test(`HTML with ${name} is answered`, () => answers('html', name, text));
}
for (const language of ['javascript', 'markdown', 'latex', 'perl', 'cpp', 'xml', 'swift', 'yaml', 'bash', 'ruby']) {
  for (const unit of ['"', '`${', '/*', '<', '(', '{', '[', '\\', '#', '- ', '<<A ', 'a ', '1', '$', '@', '=']) {
    if ((language.length + unit.charCodeAt(0)) % 4 !== 0) continue;
    test(`${language} of nothing but ${JSON.stringify(unit)} is answered`, () =>
      answers('code', unit, fill(unit, 65_536), { format: { kind: 'code', language } }));
  }
}
test('code of the largest size is answered', () => answers('code', 'code', fill('let a = "b"; // c\n', largest),
  { format: { kind: 'code', language: 'javascript' } }));
