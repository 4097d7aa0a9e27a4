/**
 * Images. One from the web tells its server who reads what and when, so it is loaded only on request; one in the
 * document itself only as a raster picture, since an SVG is a document of its own.
 */

import { DATA_IMAGE_UNITS } from '../limits.js';
import { webAddress } from './links.js';

// One character class repeated to the end: linear.
const RASTER = /^data:image\/(?:png|jpe?g|gif|webp|avif|bmp);base64,[A-Za-z0-9+/]+={0,2}$/i;

export const REMOTE_IMAGES_NOTICE = 'Images from the web are not loaded.';
export const LOCAL_IMAGES_NOTICE = 'Images that lie outside this document are not shown.';

function embeddedSource(source, page) {
  if (source.length > DATA_IMAGE_UNITS || source.length > page.dataImageUnitsLeft) return undefined;
  page.dataImageUnitsLeft -= source.length;
  const compact = source.replace(/[\t\n\r\f ]/g, '');
  return RASTER.test(compact) ? compact : undefined;
}

/** The address as the result may hold it, or absent. */
function allowedSource(source, page) {
  if (/^\s{0,64}data:/i.test(source)) return embeddedSource(source, page);
  const remote = webAddress(source);
  return remote !== undefined && page.allowsRemoteImages ? remote : undefined;
}

/**
 * Writes the image, or a placeholder with its alternative text.
 * @param {{source: string, alternative: string, title?: string, size?: string[]}} image
 * @param {Page} page
 */
export function writeImage(image, page) {
  const source = allowedSource(image.source, page);
  const title = image.title ? ['title', image.title] : [];
  if (source !== undefined) {
    const loading = ['loading', 'lazy', 'decoding', 'async', 'referrerpolicy', 'no-referrer'];
    const described = ['src', source, 'alt', image.alternative, ...title, ...(image.size ?? [])];
    page.writer.empty('img', [...described, ...loading]);
    return;
  }
  page.notices.add(webAddress(image.source) === undefined ? LOCAL_IMAGES_NOTICE : REMOTE_IMAGES_NOTICE);
  page.writer.open('span', ['class', 'tsr-image', ...title]);
  page.writer.text(image.alternative);
  page.writer.close();
}
