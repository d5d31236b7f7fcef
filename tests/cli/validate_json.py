"""Validates a JSON document: validate_json.py SCHEMA DOCUMENT

Needs python3-jsonschema; without it the check fails. Prints every fault with its place.
"""

import json
import sys

import jsonschema


def main(schema_path, document_path):
    with open(schema_path, encoding="utf-8") as file:
        schema = json.load(file)
    with open(document_path, encoding="utf-8") as file:
        document = json.load(file)
    jsonschema.Draft7Validator.check_schema(schema)
    faults = list(jsonschema.Draft7Validator(schema).iter_errors(document))
    for fault in faults:
        place = "/".join(str(part) for part in fault.absolute_path)
        print(f"{place}: {fault.message}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
