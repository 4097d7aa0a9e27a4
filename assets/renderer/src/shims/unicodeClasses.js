/** The two classes that the Markdown parser asks for, from the engine's tables instead of large literals. */
export const P = /\p{P}/u;
export const S = /\p{S}/u;
export const Cc = /\p{Cc}/u;
export const Z = /\p{Z}/u;
export const Any = /[\s\S]/u;
