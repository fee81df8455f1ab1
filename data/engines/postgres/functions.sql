-- The functions that translated statements call, installed into every database. One that can fail is volatile: the
-- planner would otherwise call it with constants before there is a row, and a text that cannot be converted is an error
-- only where there is a row to convert it for. None that a statement calls for each row is strict, since such a one is
-- not taken apart into the expression around it.

CREATE FUNCTION jet_raise(number int) RETURNS text LANGUAGE plpgsql VOLATILE AS $$
BEGIN
  RAISE EXCEPTION 'JET:%', number USING ERRCODE = 'JT000';
END $$;

-- Texts. Two are equal where their keys are, and stand in the order of their keys.

-- Accents are marks behind their letters; a few letters are not taken apart by Unicode. Lower case by ICU gives the
-- capital sigma another form at the end of a word.
CREATE FUNCTION jet_key_of_letters(t text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
  WITH folded AS (
    SELECT normalize(lower(replace(rtrim(t, ' '), 'Σ', 'σ') COLLATE "und-x-icu"), NFD) AS whole
  ), bare AS (
    SELECT whole, translate(
      replace(replace(replace(replace(regexp_replace(whole, '[@MARKS@]', '', 'g'),
        'ß', 'ss'), 'æ', 'ae'), 'œ', 'oe'), 'þ', 'th'), 'øðđłħıŧ', 'oddlhit') AS base
    FROM folded
  )
  SELECT CASE WHEN base = whole THEN whole ELSE base || E'\x01' || whole END FROM bare
$$;

-- Indexes call it, which the server also fills where nothing but its own functions is found by a bare name: when it
-- gathers statistics by itself, and when a dump is read back.
CREATE FUNCTION jet_key(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN octet_length(t) = char_length(t) THEN lower(rtrim(t, ' ') COLLATE "C") ELSE public.jet_key_of_letters(t) END
$$;

-- A text as LIKE compares it: letter by letter, accents counting.
CREATE FUNCTION jet_fold(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN octet_length(t) = char_length(t) THEN lower(t COLLATE "C")
    ELSE translate(lower(replace(t, 'Σ', 'σ') COLLATE "und-x-icu"),
                   E'\u00b5\u017f\u0345\u03c2\u03d0\u03d1\u03d5\u03d6\u03f0\u03f1\u03f5',
                   E'\u03bcs\u03b9\u03c3\u03b2\u03b8\u03c6\u03c0\u03ba\u03c1\u03b5') COLLATE "C" END
$$;

-- One character as a regular expression writes it.
CREATE FUNCTION jet_letter(c text) RETURNS text LANGUAGE sql IMMUTABLE STRICT AS $$
  SELECT '\U' || lpad(to_hex(ascii(c)), 8, '0')
$$;

-- What stands between the brackets of a pattern, as a bracket of a regular expression.
CREATE FUNCTION jet_group(letters text) RETURNS text LANGUAGE plpgsql VOLATILE STRICT AS $$
DECLARE
  none boolean := left(letters, 1) = '!' AND length(letters) > 1;
  list text := CASE WHEN none THEN substr(letters, 2) ELSE letters END;
  ranges text := '';
  at int := 1;
BEGIN
  WHILE at <= length(list) LOOP
    ranges := ranges || jet_letter(substr(list, at, 1));
    IF substr(list, at + 1, 1) = '-' AND at + 2 <= length(list) THEN
      IF ascii(substr(list, at + 2, 1)) < ascii(substr(list, at, 1)) THEN
        PERFORM jet_raise(93);
      END IF;
      ranges := ranges || '-' || jet_letter(substr(list, at + 2, 1));
      at := at + 2;
    END IF;
    at := at + 1;
  END LOOP;
  RETURN CASE WHEN letters = '' THEN '' WHEN none THEN '[^' || ranges || ']' ELSE '[' || ranges || ']' END;
END $$;

CREATE FUNCTION jet_like(pattern text, t text) RETURNS boolean LANGUAGE plpgsql VOLATILE STRICT AS $$
DECLARE
  rest text := jet_fold(pattern);
  regex text := '';
  first text;
  close int;
BEGIN
  WHILE rest <> '' LOOP
    first := left(rest, 1);
    rest := substr(rest, 2);
    IF first = '[' THEN
      close := strpos(rest, ']');
      IF close = 0 THEN
        PERFORM jet_raise(93);
      END IF;
      regex := regex || jet_group(left(rest, close - 1));
      rest := substr(rest, close + 1);
    ELSE
      regex := regex || CASE first WHEN '*' THEN '.*' WHEN '?' THEN '.' WHEN '#' THEN '[0-9]' ELSE jet_letter(first) END;
    END IF;
  END LOOP;
  RETURN jet_fold(t) ~ ('^' || regex || '$');
END $$;

-- Whether a text is longer than a column takes. Characters beyond the first 65,536 count twice.
CREATE FUNCTION jet_too_long(t text, size int) RETURNS boolean LANGUAGE sql IMMUTABLE AS $$
  SELECT octet_length(t) > size
    AND char_length(t) + char_length(regexp_replace(t, '[\u0001-\uffff]', '', 'g')) > size
$$;
CREATE FUNCTION jet_fit(t text, size int) RETURNS text LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN jet_too_long(t, size) THEN jet_raise(3163) ELSE t END
$$;

-- Numbers

CREATE FUNCTION jet_range(x int8) RETURNS int4 LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN x IS NULL OR x BETWEEN -2147483648 AND 2147483647 THEN x::int4 ELSE jet_raise(6)::int4 END
$$;
CREATE FUNCTION jet_whole(x float8) RETURNS int4 LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN x IS NULL OR x BETWEEN -2147483648 AND 2147483647 THEN x::int4 ELSE jet_raise(6)::int4 END
$$;
CREATE FUNCTION jet_long(x float8) RETURNS int4 LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN x IS NULL OR round(x) BETWEEN -2147483648 AND 2147483647 THEN x::int4 ELSE jet_raise(3421)::int4 END
$$;
CREATE FUNCTION jet_money(x float8) RETURNS numeric LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN x IS NULL OR abs(x) < 922337203685477.0 THEN (round(x * 10000)::numeric / 10000)::numeric(19,4)
    ELSE jet_raise(3421)::numeric END
$$;
CREATE FUNCTION jet_divide(a float8, b float8) RETURNS float8 LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN b = 0 AND a IS NOT NULL THEN jet_raise(11)::float8 ELSE a / nullif(b, 0) END
$$;
CREATE FUNCTION jet_int_divide(a float8, b float8) RETURNS int4 LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN round(b) = 0 AND a IS NOT NULL THEN jet_raise(11)::int4
    ELSE jet_whole(trunc(round(a) / nullif(round(b), 0))) END
$$;
CREATE FUNCTION jet_mod(a float8, b float8) RETURNS int4 LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN round(b) = 0 AND a IS NOT NULL THEN jet_raise(11)::int4
    ELSE jet_whole((round(a)::numeric % nullif(round(b), 0)::numeric)::float8) END
$$;
CREATE FUNCTION jet_power(a float8, b float8) RETURNS float8 LANGUAGE plpgsql VOLATILE STRICT AS $$
BEGIN
  RETURN power(a, b);
EXCEPTION WHEN numeric_value_out_of_range OR invalid_argument_for_power_function THEN
  PERFORM jet_raise(6);
END $$;

-- A number to 15 digits, beyond the 15th place to the left or right with an exponent.
CREATE FUNCTION jet_text(x float8) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT AS $$
DECLARE
  parts text[] := string_to_array(btrim(to_char(abs(x), '9.99999999999999EEEE')), 'e');
  digits text := rtrim(replace(parts[1], '.', ''), '0');
  place int := parts[2]::int;
  sign text := CASE WHEN x < 0 THEN '-' ELSE '' END;
BEGIN
  IF digits = '' THEN
    RETURN '0';
  ELSIF place >= 15 OR (place < 0 AND length(digits) - 1 - place > 15) THEN
    RETURN sign || left(digits, 1) || CASE WHEN length(digits) > 1 THEN '.' || substr(digits, 2) ELSE '' END
      || CASE WHEN place < 0 THEN 'E-' ELSE 'E+' END || lpad(abs(place)::text, greatest(2, length(abs(place)::text)), '0');
  ELSIF place < 0 THEN
    RETURN sign || '0.' || repeat('0', -place - 1) || digits;
  END IF;
  digits := rpad(digits, greatest(place + 1, length(digits)), '0');
  RETURN sign || left(digits, place + 1) || CASE WHEN length(digits) > place + 1 THEN '.' || substr(digits, place + 2) ELSE '' END;
END $$;

-- The number that a text reads as: signs, a dollar sign and brackets on both sides, commas behind the first digit.
CREATE FUNCTION jet_number(t text) RETURNS float8 LANGUAGE plpgsql VOLATILE STRICT AS $$
DECLARE
  part text[] := regexp_match(t, '^([\s+$(-]*)(\d[\d,]*(?:\.[\d,]*)?|\.\d[\d,]*)(?:[eEdD]([+-]?\d+))?([\s+$)-]*)$');
  around text := part[1] || part[4];
  bits text[];
BEGIN
  IF part IS NULL THEN
    bits := regexp_match(t, '^([\s+$(-]*)&[hH]([0-9a-fA-F]+)([\s+$)-]*)$');
    IF bits IS NULL OR length(ltrim(bits[2], '0')) > 8 OR bits[1] || bits[3] ~ '[^\s]' THEN
      PERFORM jet_raise(3464);
    END IF;
    RETURN CASE WHEN length(ltrim(bits[2], '0')) <= 4 THEN ('x' || lpad(bits[2], 4, '0'))::bit(16)::int::int2::float8
      ELSE ('x' || lpad(bits[2], 8, '0'))::bit(32)::int4::float8 END;
  END IF;
  IF length(translate(around, '+$() ' || E'\t\n\r', '')) > 1 OR length(translate(around, '-$() ' || E'\t\n\r', '')) > 1
     OR length(translate(part[1], '+-() ' || E'\t\n\r', '')) > 1 OR length(translate(part[4], '+-() ' || E'\t\n\r', '')) > 1
     OR part[1] ~ '\(.*\(' OR part[4] ~ '\).*\)' OR (part[1] ~ '\(') <> (part[4] ~ '\)')
     OR (part[3] IS NOT NULL AND part[1] ~ '\$') THEN
    PERFORM jet_raise(3464);
  END IF;
  RETURN CASE WHEN around ~ '[-(]' THEN -1 ELSE 1 END * (replace(part[2], ',', '') || coalesce('e' || part[3], ''))::float8;
EXCEPTION WHEN numeric_value_out_of_range THEN
  PERFORM jet_raise(3464);
END $$;

CREATE FUNCTION jet_yesno(t text) RETURNS boolean LANGUAGE plpgsql VOLATILE STRICT AS $$
BEGIN
  RETURN CASE WHEN lower(btrim(t)) IN ('true', 'yes', 'on') THEN true
    WHEN lower(btrim(t)) IN ('false', 'no', 'off') THEN false ELSE jet_number(t) <> 0 END;
END $$;

-- Dates count from 30 December 1899; the time of a day before it counts away from zero.

CREATE FUNCTION jet_serial(d timestamp) RETURNS float8 LANGUAGE sql IMMUTABLE AS $$
  SELECT (d::date - date '1899-12-30')::float8
    + CASE WHEN d < timestamp '1899-12-30' THEN -1 ELSE 1 END * (extract(epoch FROM d::time)::float8 / 86400)
$$;
CREATE FUNCTION jet_date(x float8) RETURNS timestamp LANGUAGE plpgsql VOLATILE STRICT AS $$
BEGIN
  IF NOT (x >= -657434 AND x < 2958466) THEN
    PERFORM jet_raise(3421);
  END IF;
  RETURN date '1899-12-30' + trunc(x)::int + make_interval(secs => round(abs(x - trunc(x)) * 86400));
END $$;
CREATE FUNCTION jet_date_text(d timestamp) RETURNS text LANGUAGE sql IMMUTABLE AS $$
  SELECT CASE WHEN d::date = date '1899-12-30' THEN to_char(d, 'FMHH12:MI:SS AM')
    ELSE to_char(d, 'FMMM/FMDD/FMYYYY') || CASE WHEN d::time = time '00:00' THEN '' ELSE to_char(d, ' FMHH12:MI:SS AM') END END
$$;

CREATE FUNCTION jet_year(t text) RETURNS int LANGUAGE sql IMMUTABLE STRICT AS $$
  SELECT CASE WHEN length(t) > 2 THEN t::int WHEN t::int < 30 THEN 2000 + t::int ELSE 1900 + t::int END
$$;
CREATE FUNCTION jet_day(year int, month int, day int) RETURNS date LANGUAGE plpgsql IMMUTABLE STRICT AS $$
BEGIN
  RETURN CASE WHEN year BETWEEN 100 AND 9999 THEN make_date(year, month, day) END;
EXCEPTION WHEN datetime_field_overflow THEN
  RETURN NULL;
END $$;

-- The date that a text reads as: three numbers with the month first if that makes a date, then the day; or the name of
-- a month with a day, and a year if it is not the present one; a time behind it or alone.
CREATE FUNCTION jet_date_of(t text) RETURNS timestamp LANGUAGE plpgsql VOLATILE STRICT AS $$
DECLARE
  clock text[] := regexp_match(t, '(\d+)\s*:\s*(\d+)(?:\s*:\s*(\d+))?\s*([aApP][mM])?');
  days text := btrim(regexp_replace(t, '\d+\s*:\s*\d+(?:\s*:\s*\d+)?\s*(?:[aApP][mM])?', ''));
  part text[] := regexp_match(days, '^(\d+)\s*[/-]\s*(\d+)(?:\s*[/-]\s*(\d+))?$');
  hour int := coalesce(clock[1], '0')::int;
  year int := extract(year FROM current_date)::int;
  month int;
  result date;
BEGIN
  IF clock[4] IS NOT NULL THEN
    IF hour NOT BETWEEN 1 AND 12 THEN
      PERFORM jet_raise(3464);
    END IF;
    hour := hour % 12 + CASE WHEN lower(clock[4]) = 'pm' THEN 12 ELSE 0 END;
  END IF;
  IF hour > 23 OR coalesce(clock[2], '0')::int > 59 OR coalesce(clock[3], '0')::int > 59 THEN
    PERFORM jet_raise(3464);
  ELSIF days = '' AND clock IS NOT NULL THEN
    result := date '1899-12-30';
  ELSIF part[3] IS NOT NULL THEN
    result := CASE WHEN length(part[1]) > 2 THEN jet_day(part[1]::int, part[2]::int, part[3]::int)
      ELSE coalesce(jet_day(jet_year(part[3]), part[1]::int, part[2]::int), jet_day(jet_year(part[3]), part[2]::int, part[1]::int),
        CASE WHEN length(part[3]) <= 2 THEN coalesce(jet_day(jet_year(part[1]), part[2]::int, part[3]::int),
                                                     jet_day(jet_year(part[2]), part[1]::int, part[3]::int)) END) END;
  ELSIF part IS NOT NULL THEN
    result := coalesce(jet_day(year, part[1]::int, part[2]::int), jet_day(year, part[2]::int, part[1]::int));
  ELSIF days ~ '^[\s,\d-]*[[:alpha:]]+[\s,\d-]*$' THEN
    SELECT n INTO month FROM generate_series(1, 12) AS n, substring(days, '[[:alpha:]]+') AS word
      WHERE lower(word) IN (lower(to_char(make_date(2000, n, 1), 'FMMonth')), lower(to_char(make_date(2000, n, 1), 'Mon')));
    part := ARRAY(SELECT m[1] FROM regexp_matches(days, '\d+', 'g') AS m);
    IF cardinality(part) IN (1, 2) THEN
      result := jet_day(CASE WHEN cardinality(part) = 2 THEN jet_year(part[2]) ELSE year END, month, part[1]::int);
    END IF;
  END IF;
  IF result IS NULL THEN
    PERFORM jet_raise(3464);
  END IF;
  RETURN result + make_time(hour, coalesce(clock[2], '0')::int, coalesce(clock[3], '0')::int);
EXCEPTION WHEN numeric_value_out_of_range THEN
  PERFORM jet_raise(3464);
END $$;

-- The numbers of rows and of documents

-- Rows of the sessions' own tables are numbered out of one sequence, so that a table is made without one.
CREATE SEQUENCE jet_row CACHE 1000;

-- The next number of an AutoNumber column: above every one taken before, since a sequence never gives one back, and above
-- those that somebody else has written into the table. Others take numbers meanwhile, and the sequence must not be set
-- back over theirs: it is set only where it is far behind, which they cannot catch up with in a moment. A number that an
-- INSERT took is spent too when the INSERT fails, as one that AddNew took is when no Update follows: numbers are never
-- given back. (A file takes it back with the failed statement; no row ever shows the difference but by a gap.)
CREATE FUNCTION jet_autonumber(numbers text, tab text, col text) RETURNS int4 LANGUAGE plpgsql VOLATILE AS $$
DECLARE
  sequence regclass := quote_ident(numbers)::regclass;
  number int8 := nextval(sequence);
  highest int8;
BEGIN
  EXECUTE format('SELECT max(%I) FROM %I', col, tab) INTO highest;
  IF number <= highest THEN
    PERFORM pg_advisory_xact_lock(sequence::oid::int8);
    number := nextval(sequence);
    WHILE number <= highest LOOP
      IF highest - number > 1000 THEN
        PERFORM setval(sequence, highest);
      END IF;
      number := nextval(sequence);
    END LOOP;
  END IF;
  IF number > 2147483647 THEN
    PERFORM jet_raise(6);
  END IF;
  RETURN number;
END $$;
