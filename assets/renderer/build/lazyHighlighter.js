/**
 * The highlighter prepares a whole grammar when a language is first used: the expressions and keyword tables of every
 * mode, of which a short document enters a few. These changes to its source, made when it is bundled, prepare a mode
 * when it is entered, and take out what costs at every match and serves nobody. What it finds stays the same, to the
 * byte.
 *
 * Each change names the beginning and the end of a passage of the package, which is locked to one version; a passage
 * that is missing, or there twice, ends the build.
 */

const HELPERS = `
const groupCounts = new Map();
function captureGroups(pattern) {
  if (pattern.indexOf('(') < 0) return 0;
  let count = groupCounts.get(pattern);
  if (count !== undefined) return count;
  count = 0;
  let inClass = false;
  for (let i = 0; i < pattern.length; i++) {
    const unit = pattern.charCodeAt(i);
    if (unit === 0x5c) i++;
    else if (inClass) inClass = unit !== 0x5d;
    else if (unit === 0x5b) inClass = true;
    else if (unit === 0x28 && (pattern[i + 1] !== '?' || /^<[^=!]/.test(pattern.slice(i + 2, i + 4)))) count++;
  }
  groupCounts.set(pattern, count);
  return count;
}
const REFERENCE = /\\\\[1-9]/;
const CAPTURING = /\\\\.|\\[(?:\\\\.|[^\\]\\\\])*\\]|\\((?!\\?)/gs;
function withoutGroups(pattern) {
  if (pattern.indexOf('(') < 0 || REFERENCE.test(pattern) || /\\(\\?<[^=!]/.test(pattern)) return pattern;
  return pattern.replace(CAPTURING, (piece) => (piece === '(' ? '(?:' : piece));
}
// Whether the groups of what ends a mode may be asked for, by the mode itself or by one that ends with it.
function asksForGroupsOfEnd(mode) {
  return mode['on:end'] || mode.starts || mode.endsWithParent || mode.endsParent || (mode.endScope && mode.endScope._multi);
}
function asksForGroupsOfBegin(mode) {
  return mode['on:begin'] || (mode.beginScope && mode.beginScope._multi);
}
class Found {
  constructor(match, first, { rule, type, position }) {
    this.match = match;
    this.first = first;
    this.lexeme = match[first];
    this.index = match.index;
    this.rule = rule;
    this.type = type;
    this.position = position;
  }
  get groups() {
    if (this.first > 0) this.match.splice(0, this.first);
    this.first = 0;
    return this.match;
  }
}
let hasEmbedded = (names) => names != null;
function prepareNow(mode) {
  if (mode && mode.isCompiled) void mode.matcher;
}
function prepareWhenEntered(mode, prepare) {
  let isPreparing = false;
  Object.defineProperty(mode, 'matcher', {
    enumerable: true,
    configurable: true,
    get() {
      if (isPreparing) return undefined;
      isPreparing = true;
      const value = prepare();
      Object.defineProperty(mode, 'matcher', { value, enumerable: true, configurable: true, writable: true });
      return value;
    },
  });
}
`;

// What its parent's expression needs of a mode is made with the parent: how it begins, how it ends, what follows it.
const COMPILE_MODE_TAIL = `
    mode.isCompiled = true;
    if (parent) {
      if (!mode.begin) mode.begin = /\\B|\\b/;
      if (!mode.end && !mode.endsWithParent) mode.end = /\\B|\\b/;
      cmode.terminatorEnd = source(mode.end) || '';
      if (mode.endsWithParent && parent.terminatorEnd) {
        cmode.terminatorEnd += (mode.end ? '|' : '') + parent.terminatorEnd;
      }
    }
    if (mode.starts) compileMode(mode.starts, parent);
    prepareWhenEntered(mode, () => {
      let pattern = /\\w+/;
      if (typeof mode.keywords === 'object' && mode.keywords.$pattern) {
        pattern = mode.keywords.$pattern;
        mode.keywords = Object.assign({}, mode.keywords);
        delete mode.keywords.$pattern;
      }
      if (mode.keywords) {
        mode.keywords = compileKeywords(mode.keywords, language.case_insensitive);
        cmode.keywordPatternRe = langRe(pattern, true);
      }
      // Sticky: an end that is not here is not looked for in the rest of the text.
      if (parent && mode.end) cmode.endRe = new RegExp(source(mode.end), langRe('', false).flags + 'y');
      mode.contains = (mode.contains || []).flatMap((inner) => expandOrCloneMode(inner === 'self' ? mode : inner));
      for (const inner of mode.contains) compileMode(inner, cmode);
      return buildModeRegex(cmode);
    });
    return cmode;`;

const CHANGES = [
  // The groups of a pattern are counted without compiling it.
  ["return (new RegExp(re.toString() + '|'))", ".exec('').length - 1;", 'return captureGroups(source(re));'],
  // Patterns that refer to no group are joined as they are.
  [
    'let numCaptures = 0;',
    '\n',
    `const patterns = regexps.map(source);
     if (!patterns.some((pattern) => REFERENCE.test(pattern))) return '(' + patterns.join(')' + joinWith + '(') + ')';
     let numCaptures = 0;\n`,
  ],
  // An end is asked for with a sticky expression (below), which goes on from where it was left.
  ['const match = re && re.exec(lexeme);', '\n', 'if (re) re.lastIndex = 0;\nconst match = re && re.exec(lexeme);\n'],
  ['mode.isCompiled = true;', 'cmode.matcher = buildModeRegex(cmode);\n    return cmode;', COMPILE_MODE_TAIL],
  // A copy of a mode takes over what the mode holds.
  ['if (mode.variants && !mode.cachedVariants) {', '\n', 'if (mode.variants && !mode.cachedVariants) {\nprepareNow(mode);\n'],
  ['if (dependencyOnParent(mode)) {', '\n', 'if (dependencyOnParent(mode)) {\nprepareNow(mode);\nprepareNow(mode.starts);\n'],
  // The expression of a mode joins those of all its rules, and each match fills a list with the groups of all of them.
  // Groups that nobody asks for are made none, and the list becomes a rule's own only for those who ask.
  [
    'opts.position = this.position++;',
    '+ 1;',
    `opts.position = this.position++;
      const asksForGroups = opts.rule ? asksForGroupsOfBegin(opts.rule) : opts.asksForGroups;
      const pattern = asksForGroups ? source(re) : withoutGroups(source(re));
      this.starts.push(this.matchAt);
      this.regexes.push([opts, pattern]);
      this.matchAt += countMatchGroups(pattern) + 1;`,
  ],
  ['this.matchIndexes = {}', ';', 'this.starts = [];'],
  [
    'const i = match.findIndex(',
    'return Object.assign(match, matchData);',
    `const { starts } = this;
      let i = 0;
      while (match[starts[i]] === undefined) i++;
      return new Found(match, starts[i], this.regexes[i][0]);`,
  ],
  ['{ type: "end" ', '}', '{ type: "end", asksForGroups: asksForGroupsOfEnd(mode) }'],
  ['const lexeme = match && match[0]', ';', 'const lexeme = match && match.lexeme;'],
  [
    'const lexeme = match[0];\n      const newMode',
    'return doIgnore(lexeme);\n      }',
    `const { lexeme, rule: newMode } = match;
      if (newMode.__beforeBegin || newMode['on:begin']) {
        const resp = new Response(newMode);
        if (newMode.__beforeBegin) newMode.__beforeBegin(match.groups, resp);
        if (!resp.isMatchIgnored && newMode['on:begin']) newMode['on:begin'](match.groups, resp);
        if (resp.isMatchIgnored) return doIgnore(lexeme);
      }`,
  ],
  ['const lexeme = match[0];\n      const matchPlus', '=', 'const { lexeme } = match;\n      const matchPlusRemainder ='],
  ['mode["on:end"](match', ',', 'mode["on:end"](match.groups,'],
  ['emitMultiClass(mode.beginScope, match', ')', 'emitMultiClass(mode.beginScope, match.groups)'],
  ['emitMultiClass(top.endScope, match', ')', 'emitMultiClass(top.endScope, match.groups)'],
  // Plain reads and writes instead of an iterator and a property descriptor.
  ['const [kind, keywordRelevance] = data', ';', 'const kind = data[0];\nconst keywordRelevance = data[1];'],
  ['top = Object.create(mode, {', '});', 'const outer = top;\ntop = Object.create(mode);\ntop.parent = outer;'],
  // What goes wrong within an embedded language must not leave its text out; whoever asked for colours does without.
  ['} else if (SAFE_MODE) {', '} else {', '} else {'],
  // Whether a passage is another grammar's is for the user of the highlighter to say, who may take it in then.
  ['if (top.subLanguage != null)', ' {', 'if (hasEmbedded(top.subLanguage)) {'],
  ['!top.skip && !top.subLanguage', ')', '!top.skip && !hasEmbedded(top.subLanguage))'],
  ['hljs.debugMode = ', 'false; };', 'hljs.setEmbedded = (decide) => { hasEmbedded = decide; };'],
];

function replacePassage(text, [from, to, replacement]) {
  const start = text.indexOf(from);
  if (start < 0 || text.indexOf(from, start + 1) >= 0) throw new Error(`the highlighter does not hold once: ${from}`);
  const end = text.indexOf(to, start + from.length);
  if (end < 0) throw new Error(`the highlighter does not hold: ${to}`);
  return text.slice(0, start) + replacement + text.slice(end + to.length);
}

/** The highlighter's source with modes prepared when they are entered. */
export function withLazyModes(source) {
  return HELPERS + CHANGES.reduce(replacePassage, source);
}
