//! Reads a drawing with acadrust and says how many entities it has. For
//! comparison only (scripts/bench.sh with BENCH_ACADRUST=1).

use acadrust::{DwgReader, DxfReader};

fn count(path: &str) -> acadrust::Result<usize> {
    let document = if path.to_lowercase().ends_with(".dxf") {
        DxfReader::from_file(path)?.read()?
    } else {
        DwgReader::from_file(path)?.read()?
    };
    Ok(document.entities().count())
}

fn main() {
    let path = std::env::args().nth(1).expect("usage: acadrust_reader FILE");
    match count(&path) {
        Ok(entities) => println!("{entities}"),
        Err(error) => {
            eprintln!("{error}");
            std::process::exit(1);
        }
    }
    // As a program that is done would: without freeing everything first.
    std::process::exit(0);
}
