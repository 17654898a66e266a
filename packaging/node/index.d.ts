import type {Document} from './dwg_document';
import type {Document as CompleteDocument} from './dwg_document_complete';

export type {CompleteDocument, Document};

/** How a run ended. `document` is there for the kind "document" only. */
export interface Result<Form = Document> {
  kind: 'document' | 'refused' | 'crashed' | 'timeout' | 'bad';
  message: string;
  document?: Form;
}

export interface Options {
  /** The worker is ended after so many seconds; 60 by default. */
  seconds?: number;
  /** How much address space it may take, on Linux; 2048 by default. */
  megabytes?: number;
  /** The worker is ended when its document grows beyond this; 256 MiB by default. */
  maxBytes?: number;
  /** Asks for the complete form of the document. */
  complete?: boolean;
  /** Called with each line of progress. */
  onProgress?: (line: string) => void;
}

/** Converts one drawing, DWG or DXF. Never rejects for what a drawing does. */
export function convert(drawing: string, options: Options & {complete: true}):
    Promise<Result<CompleteDocument>>;
export function convert(drawing: string, options?: Options & {complete?: false}): Promise<Result>;

/** The path of the program for this system. */
export function program(): string;
