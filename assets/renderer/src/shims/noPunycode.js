/** Stands for the parser's punycode, which only its own handling of addresses uses. */
export default {};
