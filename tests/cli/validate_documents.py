"""Validates JSON documents: validate_documents.py SCHEMAS FOLDER

The document SUBCOMMAND-NUMBER.json of FOLDER is compared with SUBCOMMAND.schema.json of SCHEMAS.
Needs python3-jsonschema; without it the check fails. Prints every fault with its place.
"""

import json
import pathlib
import sys

import jsonschema


def validators_of(folder):
    validators = {}
    for path in folder.glob("*.schema.json"):
        schema = json.loads(path.read_text(encoding="utf-8"))
        jsonschema.Draft7Validator.check_schema(schema)
        validators[path.name.partition(".")[0]] = jsonschema.Draft7Validator(schema)
    return validators


def main(schemas, folder):
    validators = validators_of(pathlib.Path(schemas))
    documents = sorted(pathlib.Path(folder).glob("*.json"))
    faults = 0
    for path in documents:
        document = json.loads(path.read_text(encoding="utf-8"))
        for fault in validators[path.name.partition("-")[0]].iter_errors(document):
            place = "/".join(str(part) for part in fault.absolute_path)
            print(f"{path.name}: {place}: {fault.message}")
            faults += 1
    return 1 if faults or not documents else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
