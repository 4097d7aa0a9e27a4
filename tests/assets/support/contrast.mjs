// Measurements of a laid-out page, as one script to be run in it.

/**
 * A script expression whose value is a list of texts that have too little contrast to what is behind them, each with the
 * ratio of WCAG 2.1: 4.5 is asked of text, 3 of large text.
 */
export const faintTexts = `(() => {
  const channels = (colour) => {
    const [, list] = /rgba?\\(([^)]*)\\)/.exec(colour);
    const [red, green, blue, alpha = 1] = list.split(/[ ,/]+/).map(Number);
    return { red, green, blue, alpha };
  };
  const over = (top, bottom) => {
    const mixed = (name) => top[name] * top.alpha + bottom[name] * (1 - top.alpha);
    return { red: mixed('red'), green: mixed('green'), blue: mixed('blue'), alpha: 1 };
  };
  const behind = (element) => {
    const layers = [];
    for (let at = element; at; at = at.parentElement) layers.push(channels(getComputedStyle(at).backgroundColor));
    return layers.reverse().reduce((bottom, top) => over(top, bottom), { red: 255, green: 255, blue: 255, alpha: 1 });
  };
  const linear = (value) => value / 255 <= 0.04045 ? value / 255 / 12.92 : ((value / 255 + 0.055) / 1.055) ** 2.4;
  const luminance = ({ red, green, blue }) => 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
  const faint = [];
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (walker.nextNode()) {
    const element = walker.currentNode.parentElement;
    if (walker.currentNode.data.trim() === '' || element.getClientRects().length === 0) continue;
    const style = getComputedStyle(element);
    const paper = behind(element);
    const [a, b] = [luminance(over(channels(style.color), paper)), luminance(paper)];
    const ratio = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
    const size = parseFloat(style.fontSize);
    const isLarge = size >= 24 || (size >= 18.66 && Number(style.fontWeight) >= 600);
    if (ratio < (isLarge ? 3 : 4.5)) faint.push(walker.currentNode.data.trim().slice(0, 40) + ': ' + ratio.toFixed(2));
  }
  return faint;
})()`;

/** A script expression whose value is a list of elements that reach out of the page, unless a box that scrolls holds them. */
export const stickingOut = `(() => {
  const scrolls = (element) => {
    for (let at = element.parentElement; at; at = at.parentElement) {
      if (/auto|scroll/.test(getComputedStyle(at).overflowX)) return true;
    }
    return false;
  };
  const width = document.documentElement.clientWidth;
  return [...document.body.querySelectorAll('*')]
    .filter((element) => element.getBoundingClientRect().right > width + 1 && !scrolls(element))
    .map((element) => element.tagName + ' ' + element.className);
})()`;

/** A script expression whose value is a list of boxes that hold more than they show. */
export const cutOff = `[...document.body.querySelectorAll('*')]
  .filter((element) => element.scrollWidth > element.clientWidth + 1 && getComputedStyle(element).overflowX !== 'visible'
    && element.clientWidth > 0)
  .map((element) => element.tagName + ' ' + element.className)`;
