// What the functions of the WebAssembly are given: numbers in base 128, the lowest digit first, and texts with their
// length in front (src/browser/exchange.h).

const encoder = new TextEncoder();

export class Request {
  private readonly bytes: number[] = [];

  number(value: number): this {
    for (; value >= 128; value = Math.floor(value / 128)) {
      this.bytes.push((value % 128) + 128);
    }
    this.bytes.push(value);
    return this;
  }

  text(value: string): this {
    const bytes = encoder.encode(value);
    this.number(bytes.length);
    for (const byte of bytes) {
      this.bytes.push(byte);
    }
    return this;
  }

  texts(values: readonly string[]): this {
    this.number(values.length);
    for (const value of values) {
      this.text(value);
    }
    return this;
  }

  packed(): Uint8Array {
    return Uint8Array.from(this.bytes);
  }
}
