// A small generator of random numbers with a seed, so that a failing case can be made again from two numbers.

/** Draws from a stream that depends on nothing but `seed` (Marsaglia's xorshift over 32 bits, then mixed). */
export class Randomness {
  #state;

  constructor(seed) {
    // Neighbouring seeds have to give unlike streams, and zero is the one state that xorshift never leaves.
    this.#state = (Math.imul(seed ^ 0x9e3779b9, 0x85ebca6b) ^ 0xc2b2ae35) | 0 || 1;
    for (let i = 0; i < 8; i++) this.bits();
  }

  /** 32 random bits, as a number from 0. */
  bits() {
    let x = this.#state;
    x ^= x << 13;
    x ^= x >>> 17;
    x ^= x << 5;
    this.#state = x;
    return Math.imul(x, 0x9e3779b1) >>> 0;
  }

  /** A whole number from 0 up to but not including `limit`. */
  below(limit) {
    return Math.floor((this.bits() / 0x1_0000_0000) * limit);
  }

  /** True in `percent` of a hundred cases. */
  chance(percent) {
    return this.below(100) < percent;
  }

  /** One of `choices`. */
  pick(choices) {
    return choices[this.below(choices.length)];
  }
}
